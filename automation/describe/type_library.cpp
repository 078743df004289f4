// The type library in the file format of the system's own compilers (MSFT), word by word as they write dual
// interfaces: CreateTypeLib2 of the test bed leaves out what early-bound tools ask for.
#include "automation/describe/descriptions.hpp"
#include "automation/describe/library_parts.hpp"

#include "automation/variants.hpp"
#include "platform/files.hpp"

#include <algorithm>

namespace tolvex::automation {

namespace {

constexpr Word methods_of_dispatch = 7; // what every dual interface starts with
constexpr Word library_owner = 0xFFFFFFFE, base_owner = 2, dispatch_owner = 1;
constexpr Word type_name = 0x38;
constexpr Word type_size = 100;
constexpr GUID base_library = {0x00020430, 0, 0, {0xc0, 0, 0, 0, 0, 0, 0, 0x46}}; // stdole2.tlb

// A type of the library: what its record says besides what all have in common.
struct TypeRecord
{
    Word kind;
    Word methods;
    Word id;
    Word flags;
    Word name;
    Word description;
    Word table_size;
    Word base; // an interface: its own base; a class: the place of its interface in the references
    Word inherited;
    std::string functions;
};

class Writer
{
public:
    explicit Writer(SYSKIND system) : system_(system), names_(system) {}

    std::string file();

private:
    Word pointer_size() const { return system_ == SYS_WIN64 ? 8 : 4; }
    Word alignment() const { return pointer_size() << 11; }
    Word next_type() const { return static_cast<Word>(types_.size()) * type_size; }

    void add_library();
    void add_interface(const Class& described);
    void add_class(const Class& described);

    std::string functions_of(const Class& described, Word owner);
    std::string function_record(const Method& method, std::size_t index);
    std::string parameter_records(const Method& method);
    std::string default_values(const Method& method);

    std::string assembled() const;
    std::string header() const;
    std::string type_records(Word functions_at) const;

    SYSKIND system_;
    LibraryTexts texts_;
    LibraryNames names_;
    LibraryIdentifiers identifiers_;
    LibraryPointers pointers_;
    LibraryDefaults defaults_;
    std::vector<TypeRecord> types_;
    std::string references_, imported_types_, imported_files_;
    Word library_id_ = 0, library_text_ = 0, library_name_ = 0;
};

Word default_count(const Method& method)
{
    return static_cast<Word>(
        std::count_if(method.parameters.begin(), method.parameters.end(),
                      [](const Parameter& parameter) { return parameter.is_optional(); }));
}

Word argument_count(const Method& method)
{
    return static_cast<Word>(method.parameters.size()) + (method.result != VT_EMPTY ? 1 : 0);
}

// --- what the library says ---

void Writer::add_library()
{
    library_id_ = identifiers_.add(library_id, library_owner);
    library_name_ = names_.add(library_name);
    library_text_ = texts_.add(library_description);
    const Word base = identifiers_.add(base_library, base_owner);
    const Word dispatch = identifiers_.add(IID_IDispatch, dispatch_owner);
    put(imported_types_, {Word{TKIND_INTERFACE} << 24 | 0x10000, 0, dispatch});
    const std::string name = "stdole2.tlb";
    put(imported_files_, {base, 0, 2});
    imported_files_ += static_cast<char>(name.size() << 2 | 1);
    imported_files_ += '\0';
    imported_files_ += name;
    pad(imported_files_);
}

void Writer::add_interface(const Class& described)
{
    const Word place = next_type(), methods = static_cast<Word>(described.methods.size());
    TypeRecord type{};
    type.kind = TKIND_DISPATCH | 0x230 | alignment(); // 0x10: dual
    type.methods = methods;
    type.id = identifiers_.add(described.interface_id, place);
    type.flags = TYPEFLAG_FDUAL | TYPEFLAG_FOLEAUTOMATION | TYPEFLAG_FNONEXTENSIBLE | TYPEFLAG_FDISPATCHABLE;
    type.name = names_.add(interface_name(described), place, type_name);
    type.description = texts_.add(described.description);
    type.table_size = (methods_of_dispatch + methods) * pointer_size();
    type.base = dispatch_owner;
    type.inherited = methods_of_dispatch << 16 | 2; // IDispatch and IUnknown
    type.functions = functions_of(described, place);
    types_.push_back(std::move(type));
}

void Writer::add_class(const Class& described)
{
    const Word interface_place = next_type() - type_size, place = next_type();
    TypeRecord type{};
    type.kind = TKIND_COCLASS | 0x220 | 4 << 11;
    type.id = identifiers_.add(described.class_id, place);
    type.flags = TYPEFLAG_FCANCREATE;
    type.name = names_.add(described.name, place, type_name);
    type.description = texts_.add(described.description);
    type.base = static_cast<Word>(references_.size());
    put(references_, {interface_place, IMPLTYPEFLAG_FDEFAULT, nothing, nothing});
    types_.push_back(std::move(type));
}

// The methods' records, then their dispatch identifiers, names and places.
std::string Writer::functions_of(const Class& described, Word owner)
{
    std::string records, ids, names, places;
    for (std::size_t i = 0; i < described.methods.size(); ++i) {
        const Method& method = described.methods[i];
        put(places, {static_cast<Word>(records.size())});
        put(ids, {static_cast<Word>(i + 1)});
        put(names, {names_.add(method.name, owner)});
        records += function_record(method, i);
    }
    std::string functions;
    put(functions, {static_cast<Word>(records.size())});
    return functions + records + ids + names + places;
}

std::string Writer::function_record(const Method& method, std::size_t index)
{
    const Word arguments = argument_count(method);
    const std::string values = default_values(method);
    const std::string rest = values + parameter_records(method);
    const Word length = 8 * sizeof(Word) + static_cast<Word>(rest.size());
    const Word number = static_cast<Word>(index) << 16;
    const Word table_place = (methods_of_dispatch + static_cast<Word>(index)) * pointer_size();
    // What a reader needs for the description in memory, as the system's compilers count it.
    const Word described_size = 0x34 + 0x18 * (arguments + default_count(method));
    const Word kind = FUNC_PUREVIRTUAL | INVOKE_FUNC << 3 | CC_STDCALL << 8 |
                      (default_count(method) ? 0x1000 : 0) | (method.result != VT_EMPTY ? 0x4000 : 0);
    std::string record;
    put(record, {length | number, 0x80000000 | VT_HRESULT << 16 | VT_HRESULT, 0,
                 table_place | described_size << 16, kind | number, arguments, 0, texts_.add(method.help)});
    return record + rest;
}

// One for every argument where any parameter has one.
std::string Writer::default_values(const Method& method)
{
    std::string values;
    if (default_count(method) == 0) return values;
    for (const Parameter& parameter : method.parameters)
        put(values, {parameter.is_optional() ? defaults_.add(default_of(parameter)) : nothing});
    if (method.result != VT_EMPTY) put(values, {nothing});
    return values;
}

// Parameters go in both directions, as Visual Basic describes an argument by reference.
std::string Writer::parameter_records(const Method& method)
{
    std::string records;
    for (const Parameter& parameter : method.parameters) {
        const Word optional = parameter.is_optional() ? PARAMFLAG_FOPT | PARAMFLAG_FHASDEFAULT : 0;
        put(records, {pointers_.add(parameter.type), names_.add(parameter.name),
                      PARAMFLAG_FIN | PARAMFLAG_FOUT | optional});
    }
    if (method.result != VT_EMPTY)
        put(records, {pointers_.add(method.result), nothing, PARAMFLAG_FOUT | PARAMFLAG_FRETVAL});
    return records;
}

// --- the file ---

std::string Writer::file()
{
    add_library();
    for (const Class& described : surface()) {
        add_interface(described);
        add_class(described);
    }
    return assembled();
}

std::string Writer::assembled() const
{
    // As they follow each other in the file; the number is the place in its directory.
    std::vector<std::pair<std::size_t, std::string>> parts = {
        {0, type_records(0)}, {4, identifiers_.heads()}, {5, identifiers_.part()}, {3, references_},
        {1, imported_types_}, {2, imported_files_},      {6, names_.heads()},      {7, names_.part()},
        {8, texts_.part()},   {9, pointers_.part()},     {11, defaults_.part()}};
    std::array<std::pair<Word, Word>, 15> directory; // place and size
    directory.fill({nothing, 0});
    std::string file = header();
    auto end = static_cast<Word>(file.size() + directory.size() * 4 * sizeof(Word));
    for (const auto& [number, bytes] : parts) {
        directory[number] = {end, static_cast<Word>(bytes.size())};
        end += directory[number].second;
    }
    parts.front().second = type_records(end);
    for (const auto& [place, size] : directory) put(file, {place, size, nothing, 0xF});
    for (const auto& part : parts) file += part.second;
    for (const TypeRecord& type : types_) file += type.functions;
    return file;
}

std::string Writer::header() const
{
    std::string header;
    put(header, {0x5446534D,
                 0x10002,
                 library_id_,
                 0x409,
                 LOCALE_NEUTRAL,
                 0x40u | system_,
                 library_major | Word{library_minor} << 16,
                 0,
                 static_cast<Word>(types_.size()),
                 library_text_,
                 0,
                 0,
                 names_.count(),
                 names_.characters(),
                 library_name_,
                 nothing,
                 nothing,
                 0x20,
                 0x80,
                 dispatch_owner,
                 1});
    for (Word place = 0; place < next_type(); place += type_size) put(header, {place});
    return header;
}

std::string Writer::type_records(Word functions_at) const
{
    std::string records;
    for (Word i = 0; i < types_.size(); ++i) {
        const TypeRecord& type = types_[i];
        put(records, {type.kind | i << 16,
                      functions_at,
                      0,
                      0,
                      3,
                      0,
                      type.methods,
                      0,
                      0,
                      0,
                      0,
                      type.id,
                      type.flags,
                      type.name,
                      library_major | Word{library_minor} << 16,
                      type.description,
                      0,
                      0,
                      nothing,
                      1 | type.table_size << 16,
                      pointer_size(),
                      type.base,
                      type.inherited,
                      0,
                      nothing});
        functions_at += static_cast<Word>(type.functions.size());
    }
    return records;
}

} // namespace

void write_type_library(const Text& path, SYSKIND system) { files::write(path, Writer(system).file()); }

} // namespace tolvex::automation
