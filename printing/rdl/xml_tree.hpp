// An XML document as the tree of its elements, for a reader that looks around in it.
#pragma once

#include "core/text.hpp"

#include <deque>
#include <map>

namespace tolvex::printing {

struct Element
{
    Text name; // without its prefix
    Text name_space;
    std::map<Text, Text> attributes; // by their names without prefix
    std::vector<const Element*> children;
    Text text; // its own, without that of its children
    int line = 0;
    const Element* parent = nullptr;
};

class XmlTree
{
public:
    // Throws Error 5, with the line, for what is no well-formed XML, for any document type declaration (so
    // there are no entities but the five of XML), and for more than 200 levels or 200,000 elements. UTF-8,
    // UTF-16, ISO-8859-1 and Windows-1252.
    explicit XmlTree(std::string_view bytes);

    const Element& root() const { return elements_.front(); }

private:
    std::deque<Element> elements_; // which stay where they are
};

} // namespace tolvex::printing
