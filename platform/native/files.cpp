#include "platform/files.hpp"

#include "core/errors.hpp"
#include "platform/native/host_path.hpp"
#include "platform/native/reason_of.hpp"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace tolvex::files {

namespace {

namespace fs = std::filesystem;

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
    throw path_error(to_text(path.string()), reason_of(errno));
}

class NativeOutputFile : public OutputFile
{
public:
    NativeOutputFile(const fs::path& path, File file) : path_(path), file_(std::move(file)) {}

    void write(std::string_view bytes) override
    {
        if (std::fwrite(bytes.data(), 1, bytes.size(), file_.get()) != bytes.size()) fail();
    }

    void finish() override
    {
        if (file_ && std::fclose(file_.release()) != 0) fail();
    }

private:
    [[noreturn]] void fail() const { throw device_error(to_text(path_.string()), reason_of(errno)); }

    const fs::path path_;
    File file_;
};

// A new file that only its owner may read and write.
File create_private(const fs::path& path)
{
    const int descriptor = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (descriptor < 0) throw path_error(to_text(path.string()), reason_of(errno));
    return File(fdopen(descriptor, "wb"));
}

// 0 or the reason why not.
int flushed(const fs::path& path, int flags)
{
    const int descriptor = ::open(path.c_str(), flags | O_CLOEXEC);
    if (descriptor < 0) return errno;
    const int error = fsync(descriptor) == 0 ? 0 : errno;
    close(descriptor);
    return error;
}

// Some file systems cannot flush a folder; the name is then as safe as they make it.
void flush_folder_of(const fs::path& path)
{
    const fs::path folder = path.parent_path();
    flushed(folder.empty() ? "." : folder, O_RDONLY | O_DIRECTORY);
}

// Renames without replacing. A file system that cannot do it in one step gets a look before; the turn to
// issue keeps others away meanwhile.
int renamed(const fs::path& from, const fs::path& to)
{
    if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return 0;
    if (errno != EINVAL && errno != ENOSYS) return errno;
    if (access(to.c_str(), F_OK) == 0) return EEXIST;
    return std::rename(from.c_str(), to.c_str()) == 0 ? 0 : errno;
}

// Without steps that lead nowhere, nor a separator at the end, which "." leaves.
Text plain(const fs::path& path)
{
    const fs::path normal = path.lexically_normal();
    return to_text((normal.has_filename() ? normal : normal.parent_path()).string());
}

} // namespace

Text native_path(TextView path) { return to_text(host_path(path).string()); }

bool exists(TextView path)
{
    std::error_code ignored;
    return fs::exists(host_path(path), ignored);
}

bool exists_as_spelt(TextView path)
{
    std::error_code ignored;
    return fs::exists(fs::symlink_status(new_host_path(path), ignored));
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
        throw path_error(native_path(path), reason_of(error.value()));
}

std::uint64_t size(TextView path)
{
    const fs::path host = host_path(path);
    std::error_code error;
    const std::uint64_t bytes = fs::file_size(host, error);
    if (error) throw file_not_found(to_text(host.string()));
    return bytes;
}

std::uint64_t free_space(TextView folder)
{
    const fs::path host = host_path(folder);
    std::error_code error;
    const fs::space_info space = fs::space(host, error);
    if (error) throw path_error(to_text(host.string()), reason_of(error.value()));
    return space.available;
}

std::string read(TextView path)
{
    const fs::path host = host_path(path);
    const File file = open(host, "rbe");
    std::string bytes;
    char buffer[65'536];
    while (const std::size_t count = std::fread(buffer, 1, sizeof buffer, file.get()))
        bytes.append(buffer, count);
    if (std::ferror(file.get())) throw device_error(to_text(host.string()), reason_of(errno));
    return bytes;
}

void write(TextView path, std::string_view bytes)
{
    const auto file = create(path);
    file->write(bytes);
    file->finish();
}

void write_anew(TextView path, std::string_view bytes)
{
    remove_if_there(path);
    const fs::path host = new_host_path(path);
    NativeOutputFile file(host, create_private(host));
    file.write(bytes);
    file.finish();
}

void append(TextView path, std::string_view bytes)
{
    const fs::path host = new_host_path(path);
    const int descriptor = ::open(host.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    if (descriptor < 0) throw path_error(to_text(host.string()), reason_of(errno));
    const bool whole =
        ::write(descriptor, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size()) &&
        fsync(descriptor) == 0;
    const int error = errno;
    close(descriptor);
    if (!whole) throw device_error(to_text(host.string()), reason_of(error));
}

void flush(TextView path)
{
    const fs::path host = host_path(path);
    if (const int error = flushed(host, O_RDONLY))
        throw device_error(to_text(host.string()), reason_of(error));
}

std::unique_ptr<OutputFile> create(TextView path)
{
    const fs::path host = new_host_path(path);
    return std::make_unique<NativeOutputFile>(host, open(host, "wbe"));
}

void keep_private(TextView path)
{
    const fs::path host = host_path(path);
    std::error_code error;
    fs::permissions(host, fs::perms::owner_read | fs::perms::owner_write, error);
    if (error) throw path_error(to_text(host.string()), reason_of(error.value()));
}

void move_over(TextView from, TextView to)
{
    const fs::path given = separated(to);
    const fs::path target = host_path(to_text(given.parent_path().string())) / given.filename();
    std::error_code error;
    fs::rename(host_path(from), target, error);
    if (error) throw path_error(to_text(target.string()), reason_of(error.value()));
    flush_folder_of(target);
}

bool move_unless_taken(TextView from, TextView to)
{
    const fs::path source = new_host_path(from), target = new_host_path(to);
    const int error = renamed(source, target);
    if (error == 0) return true;
    if (error == EEXIST) return false;
    if (error == ENOENT && !fs::exists(fs::symlink_status(source)))
        throw file_not_found(to_text(source.string()));
    throw path_error(to_text(target.string()), reason_of(error));
}

void remove(TextView path)
{
    std::error_code error;
    const fs::path host = host_path(path);
    const bool removed = fs::remove(host, error);
    if (error) throw path_error(to_text(host.string()), reason_of(error.value()));
    if (!removed) throw file_not_found(to_text(host.string()));
}

bool remove_if_there(TextView path)
{
    const fs::path host = new_host_path(path);
    if (unlink(host.c_str()) == 0) return true;
    if (errno == ENOENT || errno == ENOTDIR) return false;
    throw path_error(to_text(host.string()), reason_of(errno));
}

std::vector<Text> names_ending(TextView folder, TextView ending)
{
    std::vector<Text> names;
    std::error_code ignored;
    for (const auto& entry : fs::directory_iterator(host_path(folder), ignored)) {
        const Text name = to_text(entry.path().filename().string());
        if (lower_case(name).ends_with(lower_case(ending))) names.push_back(name);
    }
    return names;
}

Text absolute_path(TextView path) { return plain(fs::absolute(separated(path))); }

Text resolved(TextView naming_file, TextView path)
{
    return plain(separated(naming_file).parent_path() / separated(path));
}

Text program_folder() { return to_text(fs::read_symlink("/proc/self/exe").parent_path().string()); }

} // namespace tolvex::files
