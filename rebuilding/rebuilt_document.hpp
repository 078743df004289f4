// A stored document built anew from its rows by what issues documents, and held to its original string.
#pragma once

#include "rebuilding/stored_issue.hpp"

namespace tolvex {

// What differs between the stored original string and the one that the rows give; an empty text stands for
// what is not there.
struct Difference
{
    Text what, stored, rows;
};

struct RebuiltDocument
{
    DocumentValues values;
    std::vector<Difference> differences; // none when the strings are equal
    // They only differ in the issuer: the company's data have changed since. What the string says of it.
    bool other_issuer = false;
    std::vector<Text> issuer_then;
};

// Throws Error when the rows cannot give a document at all.
RebuiltDocument rebuild(StoredIssue& issue);

// What can be said of it whatever its rows lack, its file's name among it.
DocumentValues stored_values(const StoredIssue& issue);

// "total: se guardó «116.00» y los registros dan «117.00»"
Text in_words(const Difference& difference);

} // namespace tolvex
