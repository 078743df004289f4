// Runs batch files through the script host shell's Run, with wait-on-return; for the command, their lines
// themselves.
#include "platform/batch_runner.hpp"

#include "core/errors.hpp"
#include "platform/batch_lines.hpp"
#include "platform/clock.hpp"
#include "platform/files.hpp"
#include "platform/last_line.hpp"
#include "platform/windows/batch_programs.hpp"
#include "platform/windows/windows.hpp"

#include <algorithm>

namespace tolvex {

namespace {

// The shell's numbers; a window that is asked for in no way is a normal one.
constexpr LONG no_window = 0, normal_window = 1;

Text from_console_bytes(const std::string& bytes)
{
    const int length = static_cast<int>(bytes.size());
    Text text(MultiByteToWideChar(CP_OEMCP, 0, bytes.data(), length, nullptr, 0), u'\0');
    MultiByteToWideChar(CP_OEMCP, 0, bytes.data(), length, wide(text), static_cast<int>(text.size()));
    return text;
}

// The password of the database, taken out of the environment while programs are started: none inherits it.
class WithheldPassword
{
public:
    WithheldPassword() : size_(GetEnvironmentVariableW(variable, nullptr, 0)), value_(size_, L'\0')
    {
        if (size_ == 0) return;
        GetEnvironmentVariableW(variable, value_.data(), size_);
        SetEnvironmentVariableW(variable, nullptr);
    }
    ~WithheldPassword()
    {
        if (size_ > 0) SetEnvironmentVariableW(variable, value_.c_str());
    }
    WithheldPassword(const WithheldPassword&) = delete;

private:
    static constexpr const wchar_t* variable = L"TOLVEX_CLAVE";
    DWORD size_; // with the NUL at its end; 0 when there is none
    std::wstring value_;
};

ComPtr<IDispatch> create_shell()
{
    CLSID id;
    check(CLSIDFromProgID(L"WScript.Shell", &id), u"WScript.Shell");
    ComPtr<IDispatch> shell;
    check(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                           reinterpret_cast<void**>(shell.GetAddressOf())),
          u"WScript.Shell");
    return shell;
}

// Why the shell did not run a batch file, in its own words: an antivirus, a script host that was disabled.
struct Refusal
{
    ~Refusal()
    {
        for (const BSTR text : {said.bstrSource, said.bstrDescription, said.bstrHelpFile})
            SysFreeString(text);
    }

    Error as_error(HRESULT outcome, const Text& path) const
    {
        const HRESULT code = outcome == DISP_E_EXCEPTION && said.scode != 0 ? said.scode : outcome;
        const Text reason =
            said.bstrDescription ? from_wide(said.bstrDescription) : system_message(static_cast<DWORD>(code));
        return {static_cast<std::int32_t>(code), u"No se pudo ejecutar " + path + u": " + reason};
    }

    EXCEPINFO said{};
};

int run_and_wait(const Text& path, WindowStyle style)
{
    const ComPtr<IDispatch> shell = create_shell();
    wchar_t name[] = L"Run";
    LPOLESTR names[] = {name};
    DISPID method = 0;
    check(shell->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &method), u"WScript.Shell.Run");

    const Text quoted = u'"' + path + u'"'; // Run takes an unquoted path to end at its first blank
    Variant last_first[] = {Variant(true), Variant(style == WindowStyle::hidden ? no_window : normal_window),
                            Variant(quoted)};
    DISPPARAMS parameters{last_first, nullptr, 3, 0};
    Variant result;
    Refusal refusal;
    const HRESULT outcome = shell->Invoke(method, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters,
                                          &result, &refusal.said, nullptr);
    if (FAILED(outcome)) throw refusal.as_error(outcome, path);
    return result.vt == VT_I4 ? result.lVal : 0;
}

// The file into which a command encodes a seal; empty for none.
Text encoded_seal(const BatchCommand& command)
{
    const auto& words = command.words;
    const bool encodes = std::find(words.begin(), words.end(), u"enc") != words.end() &&
                         std::find(words.begin(), words.end(), u"-base64") != words.end();
    const auto out = std::find(words.begin(), words.end(), u"-out");
    return encodes && out != words.end() && out + 1 != words.end() ? out[1] : Text();
}

// Whether the command interpreter takes it for something else than a letter of a name.
bool has_another_meaning(char16_t c) { return TextView(u" \t&%^=;,()<>|!\"").find(c) != TextView::npos; }

// Whether it is in the code page of batch files.
bool is_readable(char16_t c)
{
    if (GetOEMCP() == CP_UTF8) return true;
    const auto character = static_cast<wchar_t>(c);
    char bytes[8];
    BOOL unreadable = FALSE;
    return WideCharToMultiByte(CP_OEMCP, WC_NO_BEST_FIT_CHARS, &character, 1, bytes, sizeof bytes, nullptr,
                               &unreadable) > 0 &&
           !unreadable;
}

int run_in_shell(const Text& path, const std::vector<BatchCommand>& commands, WindowStyle style)
{
    const std::int64_t start = milliseconds_running();
    const int exit_code = run_and_wait(path, style);
    for (const BatchCommand& command : commands)
        log_program(command, exit_code, milliseconds_running() - start);
    return exit_code;
}

int run_one_by_one(const std::vector<BatchCommand>& commands, WindowStyle style)
{
    int exit_code = 0;
    for (const BatchCommand& command : commands) {
        const std::int64_t start = milliseconds_running();
        exit_code = run_in_console(command, style);
        log_program(command, exit_code, milliseconds_running() - start);
    }
    return exit_code;
}

} // namespace

int run_batch_file(TextView path, WindowStyle style)
{
    // The shell's Run itself would show a box for a missing file and say that it ran.
    const std::vector<BatchCommand> commands = parse_batch(from_console_bytes(files::read(path)));
    const WithheldPassword withheld;
    const int exit_code = programs_run_in_console() ? run_one_by_one(commands, style)
                                                    : run_in_shell(files::native_path(path), commands, style);
    for (const BatchCommand& command : commands) restore_line_feeds(encoded_seal(command));
    return exit_code;
}

Text program_of_batch(TextView word) { return program_of(Text(word)); }

void require_batch_folder(TextView folder)
{
    const auto refused = std::find_if(folder.begin(), folder.end(),
                                      [](char16_t c) { return has_another_meaning(c) || !is_readable(c); });
    if (refused == folder.end()) return;
    const Text character = *refused == u' ' ? Text(u"blancos") : u"«" + Text(1, *refused) + u"»";
    throw invalid_call(u"La ruta de la carpeta de trabajo no puede llevar " + character + u": " +
                       Text(folder));
}

std::string batch_file_bytes(TextView text)
{
    if (GetOEMCP() == CP_UTF8) return to_utf8(text);
    const auto unreadable = std::find_if_not(text.begin(), text.end(), is_readable);
    if (unreadable != text.end())
        throw invalid_call(u"El intérprete de órdenes no puede leer «" + Text(1, *unreadable) +
                           u"» en un archivo por lotes");
    const auto* start = reinterpret_cast<const wchar_t*>(text.data());
    const int length = static_cast<int>(text.size());
    std::string bytes(WideCharToMultiByte(CP_OEMCP, 0, start, length, nullptr, 0, nullptr, nullptr), '\0');
    WideCharToMultiByte(CP_OEMCP, 0, start, length, bytes.data(), static_cast<int>(bytes.size()), nullptr,
                        nullptr);
    return bytes;
}

} // namespace tolvex
