#include "platform/files.hpp"
#include "core/text.hpp"

#include "platform/windows/windows.hpp"

#include <algorithm>

namespace tolvex::files {

namespace {

class File
{
public:
    File(const Text& path, DWORD access, DWORD disposition)
        : handle_(CreateFileW(wide(path), access, FILE_SHARE_READ, nullptr, disposition,
                              FILE_ATTRIBUTE_NORMAL, nullptr))
    {
        if (handle_ != INVALID_HANDLE_VALUE) return;
        const DWORD code = GetLastError();
        if (code == ERROR_FILE_NOT_FOUND && disposition == OPEN_EXISTING) throw file_not_found(path);
        throw path_error(path, system_message(code));
    }
    File(const File&) = delete;
    ~File() { CloseHandle(handle_); }

    HANDLE get() const { return handle_; }

private:
    HANDLE handle_;
};

class WindowsOutputFile : public OutputFile
{
public:
    explicit WindowsOutputFile(const Text& path, DWORD disposition = CREATE_ALWAYS)
        : path_(path), file_(path, GENERIC_WRITE, disposition)
    {}

    void write(std::string_view bytes) override
    {
        waiting_ += bytes;
        if (waiting_.size() >= piece) finish();
    }

    void finish() override
    {
        for (std::string_view rest = waiting_; !rest.empty();) rest.remove_prefix(write_some(rest));
        waiting_.clear();
    }

private:
    static constexpr std::size_t piece = 65'536;

    DWORD write_some(std::string_view bytes)
    {
        DWORD written = 0;
        const DWORD wanted = static_cast<DWORD>(std::min(bytes.size(), piece));
        if (!WriteFile(file_.get(), bytes.data(), wanted, &written, nullptr) || written == 0)
            throw device_error(path_, system_message(GetLastError()));
        return written;
    }

    const Text path_;
    const File file_;
    std::string waiting_;
};

bool has_attribute(TextView path, DWORD wanted)
{
    const DWORD attributes = GetFileAttributesW(wide(native_path(path)));
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & wanted) == wanted;
}

} // namespace

Text native_path(TextView path) { return replace_all(path, u"/", u"\\"); }

bool exists(TextView path) { return has_attribute(path, 0); }

bool exists_as_spelt(TextView path) { return exists(path); }

bool folder_exists(TextView path) { return has_attribute(path, FILE_ATTRIBUTE_DIRECTORY); }

void create_folder(TextView path)
{
    const Text host = native_path(path);
    if (!CreateDirectoryW(wide(host), nullptr)) throw path_error(host, system_message(GetLastError()));
}

std::uint64_t size(TextView path)
{
    const Text host = native_path(path);
    WIN32_FILE_ATTRIBUTE_DATA found;
    if (!GetFileAttributesExW(wide(host), GetFileExInfoStandard, &found)) throw file_not_found(host);
    return (std::uint64_t{found.nFileSizeHigh} << 32) | found.nFileSizeLow;
}

std::uint64_t free_space(TextView folder)
{
    const Text host = native_path(folder);
    ULARGE_INTEGER available;
    if (!GetDiskFreeSpaceExW(wide(host), &available, nullptr, nullptr))
        throw path_error(host, system_message(GetLastError()));
    return available.QuadPart;
}

std::string read(TextView path)
{
    const Text host = native_path(path);
    const File file(host, GENERIC_READ, OPEN_EXISTING);
    std::string bytes;
    char buffer[65'536];
    for (;;) {
        DWORD count = 0;
        if (!ReadFile(file.get(), buffer, sizeof buffer, &count, nullptr))
            throw device_error(host, system_message(GetLastError()));
        if (count == 0) return bytes;
        bytes.append(buffer, count);
    }
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
    WindowsOutputFile file(native_path(path), CREATE_NEW);
    file.write(bytes);
    file.finish();
}

void append(TextView path, std::string_view bytes)
{
    const Text host = native_path(path);
    const File file(host, FILE_APPEND_DATA, OPEN_ALWAYS);
    DWORD written = 0;
    const auto size = static_cast<DWORD>(bytes.size());
    if (!WriteFile(file.get(), bytes.data(), size, &written, nullptr) || written != size ||
        !FlushFileBuffers(file.get()))
        throw device_error(host, system_message(GetLastError()));
}

void flush(TextView path)
{
    const Text host = native_path(path);
    const File file(host, GENERIC_WRITE, OPEN_EXISTING);
    if (!FlushFileBuffers(file.get())) throw device_error(host, system_message(GetLastError()));
}

std::unique_ptr<OutputFile> create(TextView path)
{
    return std::make_unique<WindowsOutputFile>(native_path(path));
}

// A file's readers are those of its folder.
void keep_private(TextView) {}

void move_over(TextView from, TextView to)
{
    const Text target = native_path(to);
    if (!MoveFileExW(wide(native_path(from)), wide(target),
                     MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
        throw path_error(target, system_message(GetLastError()));
}

bool move_unless_taken(TextView from, TextView to)
{
    const Text source = native_path(from), target = native_path(to);
    if (MoveFileExW(wide(source), wide(target), MOVEFILE_WRITE_THROUGH)) return true;
    const DWORD code = GetLastError();
    if (code == ERROR_ALREADY_EXISTS || code == ERROR_FILE_EXISTS) return false;
    if (code == ERROR_FILE_NOT_FOUND) throw file_not_found(source);
    throw path_error(target, system_message(code));
}

void remove(TextView path)
{
    const Text host = native_path(path);
    if (DeleteFileW(wide(host))) return;
    const DWORD code = GetLastError();
    if (code == ERROR_FILE_NOT_FOUND) throw file_not_found(host);
    throw path_error(host, system_message(code));
}

bool remove_if_there(TextView path)
{
    const Text host = native_path(path);
    if (DeleteFileW(wide(host))) return true;
    const DWORD code = GetLastError();
    if (code == ERROR_FILE_NOT_FOUND || code == ERROR_PATH_NOT_FOUND) return false;
    throw path_error(host, system_message(code));
}

std::vector<Text> names_ending(TextView folder, TextView ending)
{
    std::vector<Text> names;
    WIN32_FIND_DATAW found;
    const HANDLE search = FindFirstFileW(wide(native_path(folder) + u"\\*"), &found);
    if (search == INVALID_HANDLE_VALUE) return names;
    do {
        const Text name = from_wide(found.cFileName);
        if (lower_case(name).ends_with(lower_case(ending))) names.push_back(name);
    } while (FindNextFileW(search, &found));
    FindClose(search);
    return names;
}

Text absolute_path(TextView path)
{
    const Text host = native_path(path);
    Text absolute(GetFullPathNameW(wide(host), 0, nullptr, nullptr), u'\0');
    absolute.resize(
        GetFullPathNameW(wide(host), static_cast<DWORD>(absolute.size()), wide(absolute), nullptr));
    const bool is_drive = absolute.ends_with(u":\\");
    if (absolute.ends_with(u'\\') && !is_drive) absolute.pop_back();
    return absolute;
}

Text resolved(TextView naming_file, TextView path)
{
    const bool absolute = path.size() > 1 && (path[1] == u':' || path[0] == u'\\' || path[0] == u'/');
    const auto separator = naming_file.find_last_of(u"\\/");
    if (absolute || separator == TextView::npos) return native_path(path);
    return absolute_path(Text(naming_file.substr(0, separator + 1)) + Text(path));
}

Text program_folder()
{
    constexpr std::size_t longest_path = 32'768;
    Text program(longest_path, u'\0');
    program.resize(GetModuleFileNameW(nullptr, wide(program), static_cast<DWORD>(program.size())));
    return program.substr(0, program.find_last_of(u'\\'));
}

} // namespace tolvex::files
