// An XML document built in memory and saved: the few DOM operations that the system needs. Names are used as
// they stand ("cfdi:Emisor" is one name), attributes keep the order in which they were first set.
#pragma once

#include "core/text.hpp"

#include <memory>

namespace tolvex {

class XmlDocument;
struct XmlNode; // an element as the adapter's own library knows it

// A reference to an element; it lives as long as its document.
class XmlElement
{
public:
    // Throws Error when the name is no XML name or the value holds a character that XML does not allow.
    void set_attribute(const Text& name, const Text& value);
    // New last child with that name. Throws Error when it is no XML name.
    XmlElement append(const Text& name);
    void set_text(const Text& text);
    // Nothing changes in it any more: a document of thousands of lines need not keep their nodes.
    void finish();

private:
    friend class XmlDocument;
    XmlElement(XmlDocument& document, XmlNode* node) : document_(&document), node_(node) {}

    XmlDocument* document_;
    XmlNode* node_;
};

class XmlDocument
{
public:
    // Empty but for the instruction <?xml version='1.0' encoding='UTF-8'?>.
    XmlDocument();
    ~XmlDocument();
    XmlDocument(const XmlDocument&) = delete;
    XmlDocument& operator=(const XmlDocument&) = delete;

    XmlElement create_root(const Text& name);
    // The instruction, a line feed, the document in one line and a line feed, as UTF-8.
    std::string as_bytes() const;

private:
    friend class XmlElement;
    struct Native;
    std::unique_ptr<Native> native_;
};

} // namespace tolvex
