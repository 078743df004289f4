#include "platform/files.hpp"
#include "core/text.hpp"

#include "core/errors.hpp"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>

namespace tolvex::files {

namespace {

namespace fs = std::filesystem;

Text reason(int error)
{
    switch (error) {
    case ENOENT:
        return u"no existe la carpeta";
    case ENOTDIR:
        return u"una parte de la ruta no es una carpeta";
    case EISDIR:
        return u"es una carpeta";
    case EACCES:
    case EPERM:
        return u"no hay permiso";
    case EROFS:
        return u"el disco es de sólo lectura";
    case ENOSPC:
    case EDQUOT:
        return u"el disco está lleno";
    case EFBIG:
        return u"el archivo es demasiado grande";
    default:
        return to_text(std::strerror(error));
    }
}

fs::path separated(TextView path) { return fs::path(to_utf8(replace_all(path, u"\\", u"/"))); }

// The entry of a folder whose name is the given one but for letter case, or the name itself.
fs::path existing_spelling(const fs::path& folder, const fs::path& name)
{
    std::error_code ignored;
    const fs::path exact = folder / name;
    if (fs::exists(fs::symlink_status(exact, ignored))) return exact;
    const Text wanted = to_text(name.string());
    for (const auto& entry : fs::directory_iterator(folder.empty() ? "." : folder, ignored))
        if (equal_ignoring_case(to_text(entry.path().filename().string()), wanted)) return entry.path();
    return exact;
}

fs::path host_path(TextView path)
{
    const fs::path as_given = separated(path);
    std::error_code ignored;
    if (fs::exists(as_given, ignored)) return as_given;
    fs::path found = as_given.root_path();
    for (const fs::path& name : as_given.relative_path()) found = existing_spelling(found, name);
    return found;
}

struct Close
{
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, Close>;

File open(const fs::path& path, const char* mode)
{
    File file(std::fopen(path.c_str(), mode));
    if (file) return file;
    if (errno == ENOENT && *mode == 'r') throw file_not_found(to_text(path.string()));
    throw path_error(to_text(path.string()), reason(errno));
}

class NativeOutputFile : public OutputFile
{
public:
    explicit NativeOutputFile(const fs::path& path) : path_(path), file_(open(path, "wbe")) {}

    void write(std::string_view bytes) override
    {
        if (std::fwrite(bytes.data(), 1, bytes.size(), file_.get()) != bytes.size()) fail();
    }

    void finish() override
    {
        if (file_ && std::fclose(file_.release()) != 0) fail();
    }

private:
    [[noreturn]] void fail() const { throw device_error(to_text(path_.string()), reason(errno)); }

    const fs::path path_;
    File file_;
};

} // namespace

Text native_path(TextView path) { return to_text(host_path(path).string()); }

bool exists(TextView path)
{
    std::error_code ignored;
    return fs::exists(host_path(path), ignored);
}

bool folder_exists(TextView path)
{
    std::error_code ignored;
    return fs::is_directory(host_path(path), ignored);
}

void create_folder(TextView path)
{
    std::error_code error;
    if (!fs::create_directory(host_path(path), error) && error)
        throw path_error(native_path(path), reason(error.value()));
}

std::uint64_t size(TextView path)
{
    const fs::path host = host_path(path);
    std::error_code error;
    const std::uint64_t bytes = fs::file_size(host, error);
    if (error) throw file_not_found(to_text(host.string()));
    return bytes;
}

std::string read(TextView path)
{
    const fs::path host = host_path(path);
    const File file = open(host, "rbe");
    std::string bytes;
    char buffer[65'536];
    while (const std::size_t count = std::fread(buffer, 1, sizeof buffer, file.get()))
        bytes.append(buffer, count);
    if (std::ferror(file.get())) throw device_error(to_text(host.string()), reason(errno));
    return bytes;
}

void write(TextView path, std::string_view bytes)
{
    const auto file = create(path);
    file->write(bytes);
    file->finish();
}

std::unique_ptr<OutputFile> create(TextView path)
{
    return std::make_unique<NativeOutputFile>(host_path(path));
}

void keep_private(TextView path)
{
    const fs::path host = host_path(path);
    std::error_code error;
    fs::permissions(host, fs::perms::owner_read | fs::perms::owner_write, error);
    if (error) throw path_error(to_text(host.string()), reason(error.value()));
}

void move_over(TextView from, TextView to)
{
    const fs::path given = separated(to);
    const fs::path target = host_path(to_text(given.parent_path().string())) / given.filename();
    std::error_code error;
    fs::rename(host_path(from), target, error);
    if (error) throw path_error(to_text(target.string()), reason(error.value()));
}

void remove(TextView path)
{
    std::error_code error;
    const fs::path host = host_path(path);
    const bool removed = fs::remove(host, error);
    if (error) throw path_error(to_text(host.string()), reason(error.value()));
    if (!removed) throw file_not_found(to_text(host.string()));
}

std::vector<Text> names_ending(TextView folder, TextView ending)
{
    std::vector<Text> names;
    std::error_code none;
    for (fs::directory_iterator entry(host_path(folder), none), end; !none && entry != end;
         entry.increment(none)) {
        Text name = to_text(entry->path().filename().string());
        if (name.ends_with(ending)) names.push_back(std::move(name));
    }
    return names;
}

Text absolute_path(TextView path)
{
    return to_text(fs::absolute(separated(path)).lexically_normal().string());
}

Text resolved(TextView naming_file, TextView path)
{
    fs::path joined = (separated(naming_file).parent_path() / separated(path)).lexically_normal();
    if (!joined.has_filename()) joined = joined.parent_path(); // "." leaves a separator at the end
    return to_text(joined.string());
}

Text program_folder() { return to_text(fs::read_symlink("/proc/self/exe").parent_path().string()); }

} // namespace tolvex::files
