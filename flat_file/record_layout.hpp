// The records that a flat file is made of, and their values (docs/archivo-plano.md).
#pragma once

#include "tolvex/types.hpp"

#include <span>

namespace tolvex {

enum class Kind
{
    text,         // goes into statements and the original string
    addenda_text, // goes into the XML alone
    folder,
    int16,
    int32,
    amount,
    date,
    boolean,      // 0 or 1
    document_kind // ingreso or egreso
};

struct Field
{
    TextView name;
    Kind kind;
    bool may_be_empty = false; // an empty text that may not is a warning
};

struct RecordLayout
{
    TextView name;
    std::span<const Field> fields;
    std::size_t least; // how many must be there
};

// By its name in upper case; null for none.
const RecordLayout* layout_of(TextView name);

} // namespace tolvex
