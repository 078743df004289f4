// The XML document of MSXML: its bytes, and that nothing stays of it when a process saves one after another.
#include "platform/xml_document.hpp"

#include "platform/windows/windows.hpp"
#include "tests/windows/held.hpp"

#include <gtest/gtest.h>

namespace tolvex {
namespace {

std::string one_document()
{
    XmlDocument document;
    XmlElement root = document.create_root(u"cfdi:Comprobante");
    root.set_attribute(u"xmlns:cfdi", u"http://www.sat.gob.mx/cfd/3");
    root.append(u"cfdi:Emisor").set_attribute(u"nombre", u"Peña & \"Hijos\"");
    return document.as_bytes();
}

class WindowsXmlDocument : public ::testing::Test
{
protected:
    WindowsXmlDocument() { CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
    ~WindowsXmlDocument() override { CoUninitialize(); }
};

TEST_F(WindowsXmlDocument, is_the_instruction_and_one_line_as_utf8)
{
    EXPECT_EQ(one_document(), "<?xml version='1.0' encoding='UTF-8'?>\n"
                              "<cfdi:Comprobante xmlns:cfdi=\"http://www.sat.gob.mx/cfd/3\">"
                              "<cfdi:Emisor nombre=\"Peña &amp; &quot;Hijos&quot;\"/></cfdi:Comprobante>\n");
}

TEST_F(WindowsXmlDocument, leaves_no_memory_behind)
{
    constexpr int warm_up = 100, rounds = 500;
    for (int i = 0; i < warm_up; ++i) one_document();
    const double before = held::private_mebibytes();
    for (int i = 0; i < rounds; ++i) one_document();
    EXPECT_LT(held::private_mebibytes() - before, rounds / 1024.0); // less than a KiB a document
}

} // namespace
} // namespace tolvex
