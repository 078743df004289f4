#include "core/errors.hpp"
#include "database/driver.hpp"
#include "platform/batch_runner.hpp"
#include "platform/files.hpp"
#include "platform/messages.hpp"
#include "platform/xml_document.hpp"
namespace tolvex {
struct XmlDocument::Native {};
XmlDocument::XmlDocument() {}
XmlDocument::~XmlDocument() {}
XmlElement XmlDocument::create_root(const Text&) { throw invalid_call(); }
void XmlDocument::save(TextView) const {}
XmlElement XmlElement::append(const Text&) { throw invalid_call(); }
void XmlElement::set_attribute(const Text&, const Text&) {}
void XmlElement::set_text(const Text&) {}
std::string batch_file_bytes(TextView t) { return to_utf8(t); }
int run_batch_file(TextView, WindowStyle) { return 0; }
void show_message_natively(const Text&, const Text&, MessageStyle) {}
namespace files {
Text native_path(TextView path) { return Text(path); }
bool exists(TextView) { return false; }
bool folder_exists(TextView) { return false; }
void create_folder(TextView) {}
std::string read(TextView p) { throw file_not_found(p); }
void write(TextView p, std::string_view) { throw file_not_found(p); }
void remove(TextView p) { throw file_not_found(p); }
} // namespace files
std::unique_ptr<Driver> open_embedded(const Text&, int) { throw Error(database_error, u"no hay base"); }
std::unique_ptr<Driver> open_odbc(const Text&, int) { throw Error(database_error, u"no hay base"); }
} // namespace tolvex
