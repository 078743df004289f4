#include "flat_file/plain_text.hpp"

namespace tolvex {

// An apostrophe would end a statement's text, so single quotes become accents that stand alone.
TextView plain_form(char16_t c)
{
    switch (c) {
    case u'–':
    case u'—':
        return u"-";
    case u'“':
    case u'”':
        return u"\"";
    case u'‘':
        return u"`";
    case u'’':
        return u"´";
    case u'…':
        return u"...";
    case u'•':
        return u"·";
    default:
        return {};
    }
}

Text plain_text(TextView text)
{
    Text plain;
    for (const char16_t c : text) {
        const TextView form = plain_form(c);
        if (form.empty())
            plain += c;
        else
            plain += form;
    }
    return plain;
}

} // namespace tolvex
