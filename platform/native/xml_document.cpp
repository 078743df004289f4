#include "platform/xml_document.hpp"

#include "platform/xml_content.hpp"

#include <libxml/parserInternals.h> // xmlStringTextNoenc
#include <libxml/tree.h>
#include <libxml/xmlsave.h>

namespace tolvex {

namespace {

const xmlChar* bytes(const std::string& utf8) { return reinterpret_cast<const xmlChar*>(utf8.c_str()); }

template <class Pointer>
Pointer checked(Pointer made)
{
    if (!made) throw xml_error(u"no alcanza la memoria");
    return made;
}

// A copy or a buffer that found no memory is left out by the library, which leaves but this trace of it; of a
// node's name there is none, so that each is checked.
bool memory_was_lacking()
{
    const xmlError* last = xmlGetLastError();
    return last && last->code == XML_ERR_NO_MEMORY;
}

std::string name_of(const Text& name)
{
    const std::string utf8 = to_utf8(name);
    if (name.empty() || xmlValidateName(bytes(utf8), 0) != 0)
        throw xml_error(u"\"" + name + u"\" no es un nombre válido");
    return utf8;
}

std::string content_of(const Text& value) { return to_utf8(allowed_xml_content(value)); }

struct FreeDocument
{
    void operator()(xmlDoc* document) const { xmlFreeDoc(document); }
};

struct FreeBuffer
{
    void operator()(xmlBuffer* buffer) const { xmlBufferFree(buffer); }
};

// Elements that were finished one after the other, as they will stand in the file. The node in their place is
// a text that is written as it is.
struct Finished
{
    xmlNode* place;
    std::unique_ptr<xmlBuffer, FreeBuffer> bytes;

    static Finished before(xmlNode* element)
    {
        Finished made{checked(xmlNewText(nullptr)), nullptr};
        made.place->name = xmlStringTextNoenc;
        xmlAddPrevSibling(element, made.place);
        made.bytes.reset(checked(xmlBufferCreate()));
        xmlBufferSetAllocationScheme(made.bytes.get(), XML_BUFFER_ALLOC_DOUBLEIT);
        return made;
    }
};

// No exception may pass through the library.
int append_to(void* saved, const char* piece, int length) noexcept
{
    try {
        static_cast<std::string*>(saved)->append(piece, static_cast<std::size_t>(length));
        return length;
    } catch (const std::bad_alloc&) {
        return -1;
    }
}

xmlNode* node(XmlNode* element) { return reinterpret_cast<xmlNode*>(element); }
XmlNode* element(xmlNode* node) { return reinterpret_cast<XmlNode*>(node); }

} // namespace

struct XmlDocument::Native
{
    std::unique_ptr<xmlDoc, FreeDocument> document;
    std::vector<Finished> finished;
};

void XmlElement::set_attribute(const Text& name, const Text& value)
{
    // By plain name: "xmlns:cfdi" is an attribute like any other, so that all keep their order.
    const std::string attribute = name_of(name), content = content_of(value);
    for (xmlAttr* existing = node(node_)->properties; existing; existing = existing->next)
        if (xmlStrEqual(existing->name, bytes(attribute))) {
            xmlNodeSetContent(reinterpret_cast<xmlNode*>(existing), nullptr);
            xmlAddChild(reinterpret_cast<xmlNode*>(existing), checked(xmlNewText(bytes(content))));
            return;
        }
    xmlAttr* made = checked(xmlNewProp(node(node_), bytes(attribute), nullptr));
    checked(made->name);
    xmlAddChild(reinterpret_cast<xmlNode*>(made), checked(xmlNewText(bytes(content))));
}

XmlElement XmlElement::append(const Text& name)
{
    xmlNode* child = checked(xmlNewDocNode(node(node_)->doc, nullptr, bytes(name_of(name)), nullptr));
    xmlAddChild(node(node_), child);
    checked(child->name);
    return {*document_, element(child)};
}

void XmlElement::set_text(const Text& text)
{
    xmlAddChild(node(node_), checked(xmlNewText(bytes(content_of(text)))));
}

void XmlElement::finish()
{
    xmlNode* element = node(node_);
    std::vector<Finished>& finished = document_->native_->finished;
    if (finished.empty() || finished.back().place != element->prev)
        finished.push_back(Finished::before(element));
    if (xmlNodeDump(finished.back().bytes.get(), element->doc, element, 0, 0) < 0)
        throw xml_error(u"no alcanza la memoria");
    xmlUnlinkNode(element);
    xmlFreeNode(element);
}

XmlDocument::XmlDocument() : native_(std::make_unique<Native>())
{
    xmlResetLastError();
    native_->document.reset(checked(xmlNewDoc(bytes("1.0"))));
    native_->document->dict = checked(xmlDictCreate());               // a name that comes back is kept once
    native_->document->encoding = checked(xmlStrdup(bytes("UTF-8"))); // letters are written as they are
    xmlNode* instruction =
        checked(xmlNewDocPI(native_->document.get(), bytes("xml"), bytes("version='1.0' encoding='UTF-8'")));
    xmlAddChild(reinterpret_cast<xmlNode*>(native_->document.get()), instruction);
    checked(instruction->name);
}

XmlDocument::~XmlDocument() = default;

XmlElement XmlDocument::create_root(const Text& name)
{
    xmlNode* root = checked(xmlNewDocNode(native_->document.get(), nullptr, bytes(name_of(name)), nullptr));
    xmlDocSetRootElement(native_->document.get(), root);
    checked(root->name);
    return {*this, element(root)};
}

std::string XmlDocument::as_bytes() const
{
    std::size_t size = 65'536;
    for (const Finished& each : native_->finished) size += xmlBufferLength(each.bytes.get());
    std::string saved;
    saved.reserve(size);
    xmlSaveCtxt* saving = checked(xmlSaveToIO(append_to, nullptr, &saved, "UTF-8", XML_SAVE_NO_DECL));
    for (const Finished& each : native_->finished)
        each.place->content = const_cast<xmlChar*>(xmlBufferContent(each.bytes.get()));
    xmlSaveDoc(saving, native_->document.get());
    for (const Finished& each : native_->finished) each.place->content = nullptr; // it frees only its own
    if (xmlSaveClose(saving) < 0) throw xml_error(u"no se pudo formar");
    if (memory_was_lacking()) throw xml_error(u"no alcanza la memoria");
    return saved;
}

} // namespace tolvex
