#include "core/errors.hpp"
#include "platform/xml_document.hpp"

#include <cstdlib>
#include <cstring>
#include <gtest/gtest.h>
#include <libxml/xmlerror.h>
#include <libxml/xmlmemory.h>

namespace tolvex {
namespace {

// The library's memory, of which one piece is refused.
int pieces_left = -1;

bool is_refused() { return pieces_left >= 0 && pieces_left-- == 0; }
void* piece(std::size_t size) { return is_refused() ? nullptr : std::malloc(size); }
void* longer_piece(void* before, std::size_t size)
{
    return is_refused() ? nullptr : std::realloc(before, size);
}
char* copied_piece(const char* text) { return is_refused() ? nullptr : strdup(text); }

void say_nothing(void*, const char*, ...) {}

class ScarceMemory
{
public:
    ScarceMemory()
    {
        xmlMemGet(&free_, &malloc_, &realloc_, &strdup_);
        xmlMemSetup(std::free, piece, longer_piece, copied_piece);
        xmlSetGenericErrorFunc(nullptr, say_nothing);
    }
    ~ScarceMemory()
    {
        pieces_left = -1;
        xmlMemSetup(free_, malloc_, realloc_, strdup_);
        xmlSetGenericErrorFunc(nullptr, nullptr);
    }

private:
    xmlFreeFunc free_;
    xmlMallocFunc malloc_;
    xmlReallocFunc realloc_;
    xmlStrdupFunc strdup_;
};

std::string invoice()
{
    XmlDocument document;
    XmlElement root = document.create_root(u"cfdi:Comprobante");
    root.set_attribute(u"noCertificado", u"20001000000100005867");
    root.set_attribute(u"sello", Text(6'000, u'x'));
    XmlElement lines = root.append(u"cfdi:Conceptos");
    for (int i = 0; i < 3; ++i) {
        XmlElement line = lines.append(u"cfdi:Concepto");
        line.set_attribute(u"descripcion", Text(300, u'ñ'));
        line.finish();
    }
    root.append(u"cfdi:Addenda").set_text(u"Línea");
    root.set_attribute(u"sello", u"otro");
    return document.as_bytes();
}

// A document without one of its attributes would be written, and called issued.
TEST(XmlDocument, nothing_is_left_out_of_it_when_memory_is_lacking)
{
    const std::string whole = invoice();
    const ScarceMemory scarce;
    int refused = 0;
    for (int piece = 0; pieces_left < 0; ++piece) {
        pieces_left = piece;
        try {
            EXPECT_EQ(invoice(), whole) << "piece " << piece;
        } catch (const Error&) {
            ++refused;
        }
    }
    EXPECT_GT(refused, 30);
}

} // namespace
} // namespace tolvex
