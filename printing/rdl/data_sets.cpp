#include "printing/rdl/data_sets.hpp"

#include "printing/rdl/groups.hpp"

namespace tolvex::printing {

namespace {

std::vector<Field> read_fields(Reading& in, const Element& data_set)
{
    std::vector<Field> fields;
    for (const Element* field : in.members(data_set, u"Fields", u"Field"))
        fields.push_back(
            {attribute(*field, u"Name"), in.text(*field, u"DataField"), in.expression(*field, u"Value")});
    return fields;
}

std::vector<QueryParameter> read_query_parameters(Reading& in, const Element& query)
{
    std::vector<QueryParameter> parameters;
    for (const Element* parameter : in.members(query, u"QueryParameters", u"QueryParameter"))
        parameters.push_back({attribute(*parameter, u"Name"), in.expression(*parameter, u"Value")});
    return parameters;
}

void read_query(Reading& in, const Element& query, DataSet& data_set)
{
    const Text type = in.text(query, u"CommandType");
    data_set.command = in.expression(query, u"CommandText");
    data_set.stored_procedure = type == u"StoredProcedure";
    data_set.whole_table = type == u"TableDirect";
    data_set.parameters = read_query_parameters(in, query);
}

void remark_shared(Reading& in, const Element& data_set)
{
    const Element* const shared = in.child(data_set, u"SharedDataSet");
    if (shared == nullptr) return;
    in.remark(*shared, u"el conjunto de datos compartido \"" + in.text(*shared, u"SharedDataSetReference") +
                           u"\" no se encuentra: su consulta debe estar en el formato");
    in.pass_over(*shared);
}

DataSet read_data_set(Reading& in, const Element& element)
{
    in.name_scope(element);
    DataSet data_set;
    data_set.name = attribute(element, u"Name");
    data_set.place = place_of(element);
    if (const Element* const query = in.child(element, u"Query")) read_query(in, *query, data_set);
    remark_shared(in, element);
    data_set.fields = read_fields(in, element);
    data_set.filters = read_filters(in, element);
    return data_set;
}

void read_default(Reading& in, const Element& parameter, ReportParameter& read)
{
    const Element* const element = in.child(parameter, u"DefaultValue");
    if (element == nullptr) return;
    for (const Element* value : in.members(*element, u"Values", u"Value"))
        read.defaults.push_back(in.value(*value));
    if (const Element* const query = in.child(*element, u"DataSetReference")) {
        read.default_data_set = in.text(*query, u"DataSetName");
        read.default_field = in.text(*query, u"ValueField");
    }
}

// What a person may choose among, with the words that are shown for each. Those of a query are asked for by
// viewers only.
void read_valid_values(Reading& in, const Element& parameter, ReportParameter& read)
{
    const Element* const element = in.child(parameter, u"ValidValues");
    if (element == nullptr) return;
    for (const Element* value : in.members(*element, u"ParameterValues", u"ParameterValue"))
        read.valid_values.push_back({in.expression(*value, u"Value"), in.expression(*value, u"Label")});
    if (const Element* const query = in.child(*element, u"DataSetReference")) in.pass_over(*query);
}

ReportParameter read_parameter(Reading& in, const Element& element)
{
    ReportParameter parameter;
    parameter.name = attribute(element, u"Name");
    parameter.place = place_of(element);
    parameter.type = in.text(element, u"DataType");
    parameter.nullable = in.boolean(element, u"Nullable");
    parameter.multi_value = in.boolean(element, u"MultiValue");
    parameter.allow_blank = in.boolean(element, u"AllowBlank");
    in.text(element, u"Hidden"); // from the person who is asked for it
    read_default(in, element, parameter);
    read_valid_values(in, element, parameter);
    return parameter;
}

} // namespace

std::vector<DataSet> read_data_sets(Reading& in, const Element& report)
{
    std::vector<DataSet> data_sets;
    for (const Element* element : in.members(report, u"DataSets", u"DataSet"))
        data_sets.push_back(read_data_set(in, *element));
    return data_sets;
}

std::vector<ReportParameter> read_parameters(Reading& in, const Element& report)
{
    std::vector<ReportParameter> parameters;
    for (const Element* element : in.members(report, u"ReportParameters", u"ReportParameter"))
        parameters.push_back(read_parameter(in, *element));
    return parameters;
}

} // namespace tolvex::printing
