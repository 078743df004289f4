// Fields, Parameters, ReportItems, Variables and Globals.
#pragma once

#include "printing/expressions/nodes.hpp"

#include <span>

namespace tolvex::printing {

struct CollectionProperty
{
    TextView key;
    Variant (*read)(const Environment& environment, TextView name);
};

struct Collection
{
    TextView key;
    Expression::Mention mention;
    std::span<const CollectionProperty> properties; // the first is meant where none is named
};

// Names in lower case; null for what there is not.
const Collection* collection_named(TextView key);
const CollectionProperty* property_named(const Collection& collection, TextView key);
// A property of the item with that name, which may be an expression.
NodePtr item_of(const Collection& collection, const CollectionProperty& property, const Argument& name);

// A member of Globals or User as an environment knows it, whatever the letter case; null for what there is
// not.
const Text* global_named(TextView name);
NodePtr global_value(const Text& name);

} // namespace tolvex::printing
