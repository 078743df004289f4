#include "platform/xml_document.hpp"

#include "platform/windows/windows.hpp"
#include "platform/xml_content.hpp"

#include <msxml2.h>

namespace tolvex {

namespace {

// Msxml2.DOMDocument of the Microsoft XML 3.0 type library.
constexpr CLSID dom_document_class{
    0xF6D90F11, 0x9C73, 0x11D3, {0xB3, 0x2E, 0x00, 0xC0, 0x4F, 0x99, 0x0B, 0xB4}};
constexpr IID dom_document_interface = {
    0x2933BF95, 0x7B36, 0x11D2, {0xB2, 0x0E, 0x00, 0xC0, 0x4F, 0x98, 0x3E, 0x60}};

IXMLDOMElement* element(XmlNode* node) { return reinterpret_cast<IXMLDOMElement*>(node); }
XmlNode* node(IXMLDOMElement* element) { return reinterpret_cast<XmlNode*>(element); }

// Whatever was written to a stream in memory.
std::string content_of(IStream& stream)
{
    STATSTG state{};
    check(stream.Stat(&state, STATFLAG_NONAME), u"XML stream");
    std::string content(static_cast<std::size_t>(state.cbSize.QuadPart), '\0');
    check(stream.Seek({}, STREAM_SEEK_SET, nullptr), u"XML stream");
    ULONG read = 0;
    check(stream.Read(content.data(), static_cast<ULONG>(content.size()), &read), u"XML stream");
    content.resize(read);
    return content;
}

// MSXML is not given the instruction: its versions save it with different quotes and line ends, and Wine's
// never frees a document that was saved with one. The encoding is UTF-8 without it too.
std::string with_our_prolog(const std::string& saved)
{
    const auto root = saved.find('<');
    const auto end = saved.rfind('>');
    if (root == std::string::npos) throw xml_error(u"MSXML guardó un documento vacío");
    return "<?xml version='1.0' encoding='UTF-8'?>\n" + saved.substr(root, end + 1 - root) + "\n";
}

} // namespace

struct XmlDocument::Native
{
    ComPtr<IXMLDOMDocument2> document;
    std::vector<ComPtr<IXMLDOMElement>> elements; // references live as long as their document

    IXMLDOMElement* create(const Text& name)
    {
        ComPtr<IXMLDOMElement> made;
        check(document->createElement(Variant(name).bstrVal, made.GetAddressOf()), u"XML createElement");
        elements.push_back(std::move(made));
        return elements.back().Get();
    }
};

void XmlElement::set_attribute(const Text& name, const Text& value)
{
    const Variant content(allowed_xml_content(value));
    check(element(node_)->setAttribute(Variant(name).bstrVal, content), u"XML setAttribute");
}

XmlElement XmlElement::append(const Text& name)
{
    IXMLDOMElement* child = document_->native_->create(name);
    check(element(node_)->appendChild(child, nullptr), u"XML appendChild");
    return {*document_, node(child)};
}

void XmlElement::set_text(const Text& text)
{
    check(element(node_)->put_text(Variant(allowed_xml_content(text)).bstrVal), u"XML text");
}

void XmlElement::finish() {} // MSXML keeps its nodes

XmlDocument::XmlDocument() : native_(std::make_unique<Native>())
{
    auto& document = native_->document;
    check(CoCreateInstance(dom_document_class, nullptr, CLSCTX_INPROC_SERVER, dom_document_interface,
                           reinterpret_cast<void**>(document.GetAddressOf())),
          u"Msxml2.DOMDocument");
    check(document->put_resolveExternals(VARIANT_TRUE), u"XML resolveExternals");
}

XmlDocument::~XmlDocument() = default;

XmlElement XmlDocument::create_root(const Text& name)
{
    IXMLDOMElement* root = native_->create(name);
    check(native_->document->putref_documentElement(root), u"XML documentElement");
    return {*this, node(root)};
}

std::string XmlDocument::as_bytes() const
{
    ComPtr<IStream> stream;
    check(CreateStreamOnHGlobal(nullptr, TRUE, stream.GetAddressOf()), u"XML stream");
    Variant target;
    target.vt = VT_UNKNOWN;
    stream.CopyTo(&target.punkVal);
    check(native_->document->save(target), u"XML save");
    return with_our_prolog(content_of(*stream.Get()));
}

} // namespace tolvex
