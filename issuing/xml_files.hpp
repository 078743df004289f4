// Where the XML files of a working folder are: Facturas, each named by its document, and below it Anteriores,
// with the files whose name another document took.
#pragma once

#include "platform/xml_document.hpp"

namespace tolvex {

Text facturas_path(const Text& working_folder);
// "…\Facturas\A15.xml" of the document named A15.
Text xml_path(const Text& working_folder, const Text& name);
// "…\Facturas\Anteriores\A15_2011-03-15T14-05-09.xml", where the file of a document of that moment stays
// (yyyy-mm-ddThh:mm:ss); "…-2.xml" the second time that both are the same.
Text earlier_xml_path(const Text& working_folder, const Text& name, const Text& moment, int times);

// Writes the file under its document's name and gives its path. The folder is made if it is missing (one
// level only); a file that has the name already is moved to Anteriores first. It is on disk before it takes
// its name. Throws Error.
Text write_xml_file(const XmlDocument& xml, const Text& working_folder, const Text& name);

// Removes what interrupted issues left of files that were being written.
void remove_unfinished_xml_files(const Text& working_folder);

} // namespace tolvex
