#include "platform/native/host_path.hpp"

namespace tolvex::files {

namespace {

namespace fs = std::filesystem;

bool is_there(const fs::path& path)
{
    std::error_code ignored;
    return fs::exists(fs::symlink_status(path, ignored));
}

fs::path usual_spelling(const fs::path& folder, const fs::path& name)
{
    const Text given = to_text(name.string());
    for (const Text& spelling : {given, lower_case(given), upper_case(given)}) {
        fs::path path = folder / to_utf8(spelling);
        if (is_there(path)) return path;
    }
    return folder / name;
}

fs::path existing_spelling(const fs::path& folder, const fs::path& name)
{
    const fs::path usual = usual_spelling(folder, name);
    if (is_there(usual)) return usual;
    std::error_code ignored;
    const Text wanted = to_text(name.string());
    for (const auto& entry : fs::directory_iterator(folder.empty() ? "." : folder, ignored))
        if (equal_ignoring_case(to_text(entry.path().filename().string()), wanted)) return entry.path();
    return usual;
}

fs::path found(const fs::path& as_given)
{
    std::error_code ignored;
    if (fs::exists(as_given, ignored)) return as_given;
    fs::path found = as_given.root_path();
    for (const fs::path& name : as_given.relative_path()) found = existing_spelling(found, name);
    return found;
}

} // namespace

fs::path separated(TextView path) { return fs::path(to_utf8(replace_all(path, u"\\", u"/"))); }

fs::path host_path(TextView path) { return found(separated(path)); }

fs::path new_host_path(TextView path)
{
    const fs::path as_given = separated(path);
    const fs::path folder = as_given.parent_path();
    return usual_spelling(folder.empty() ? folder : found(folder), as_given.filename());
}

} // namespace tolvex::files
