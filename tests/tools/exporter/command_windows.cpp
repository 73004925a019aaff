#include <windows.h>

#include <csignal>
#include <map>
#include <stdexcept>
#include <system_error>

#include "tests/tools/exporter/command.h"

namespace kestrin::test {
namespace {

constexpr UINT kKilled = 1009;

std::wstring Wide(const std::string& text) {
  return std::filesystem::path(std::u8string(text.begin(), text.end())).wstring();
}

[[noreturn]] void Fail(const std::string& what) {
  throw std::system_error(static_cast<int>(GetLastError()), std::system_category(), what);
}

/// A word as the C library of the program takes it apart again; only what is not in
/// quotation marks can be a pattern there.
std::wstring Quoted(const std::wstring& word) {
  if (!word.empty() && word.find_first_of(L" \t\"") == std::wstring::npos) return word;
  std::wstring quoted = L"\"";
  std::size_t backslashes = 0;
  for (const wchar_t letter : word) {
    if (letter == L'"') quoted.append(backslashes + 1, L'\\');
    backslashes = letter == L'\\' ? backslashes + 1 : 0;
    quoted += letter;
  }
  return quoted.append(backslashes, L'\\') + L'"';
}

std::wstring CommandLine(const std::vector<std::string>& words) {
  std::wstring line;
  for (const std::string& word : words) line += Quoted(Wide(word)) + L' ';
  return line;
}

/// This process's environment with further settings, as a new process takes it.
std::wstring Environment(const std::vector<std::string>& settings) {
  std::map<std::wstring, std::wstring> all;
  const auto put = [&](const std::wstring& setting) {
    const std::size_t equals = setting.find(L'=', 1);
    all[setting.substr(0, equals)] = setting;
  };
  wchar_t* own = GetEnvironmentStringsW();
  for (const wchar_t* at = own; *at != 0; at += std::wcslen(at) + 1) put(at);
  FreeEnvironmentStringsW(own);
  for (const std::string& setting : settings) put(Wide(setting));
  std::wstring block;
  for (const auto& [name, setting] : all) block.append(setting) += L'\0';
  return block += L'\0';
}

/// A new file that a child process inherits.
class Inherited {
 public:
  explicit Inherited(const std::string& path) {
    SECURITY_ATTRIBUTES inherit{sizeof inherit, nullptr, TRUE};
    handle_ = CreateFileW(Wide(path).c_str(), GENERIC_WRITE, FILE_SHARE_READ, &inherit,
                          CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle_ == INVALID_HANDLE_VALUE) Fail(path);
  }
  ~Inherited() { CloseHandle(handle_); }
  Inherited(const Inherited&) = delete;
  Inherited& operator=(const Inherited&) = delete;

  HANDLE Handle() const { return handle_; }

 private:
  HANDLE handle_;
};

}  // namespace

struct Command::Process {
  PROCESS_INFORMATION information{};
  ~Process() {
    CloseHandle(information.hThread);
    CloseHandle(information.hProcess);
  }
};

Command::Command(const std::vector<std::string>& words, const std::string& folder,
                 const std::vector<std::string>& environment)
    : process_(std::make_unique<Process>()) {
  const Inherited out(kept_ / "out"), err(kept_ / "err");
  STARTUPINFOW start{};
  start.cb = sizeof start;
  start.dwFlags = STARTF_USESTDHANDLES;
  start.hStdOutput = out.Handle();
  start.hStdError = err.Handle();
  std::wstring line = CommandLine(words);
  std::wstring settings = Environment(environment);
  if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, CREATE_UNICODE_ENVIRONMENT,
                      settings.data(), Wide(folder).c_str(), &start, &process_->information)) {
    Fail(words.front());
  }
}

Command::~Command() {
  if (Ended()) return;
  Send(9);
  Wait();
}

void Command::Send(int signal) const {
  if (signal == SIGINT) {
    // Everybody on the console gets it, this process too.
    SetConsoleCtrlHandler([](DWORD) { return TRUE; }, TRUE);
    if (!GenerateConsoleCtrlEvent(CTRL_C_EVENT, 0)) Fail("Ctrl-C");
  } else {
    TerminateProcess(process_->information.hProcess, kKilled);
  }
}

bool Command::Ended() {
  return WaitForSingleObject(process_->information.hProcess, 0) == WAIT_OBJECT_0;
}

CommandResult Command::Wait() {
  WaitForSingleObject(process_->information.hProcess, INFINITE);
  DWORD code = 0;
  GetExitCodeProcess(process_->information.hProcess, &code);
  const auto said = [&](const char* stream) {
    // The C library ends its lines in two characters.
    std::string text = FileBytes(kept_ / stream);
    std::erase(text, '\r');
    return text;
  };
  return {static_cast<int>(code), said("out"), said("err")};
}

CommandResult RunCommand(const std::vector<std::string>& words, const std::string& folder,
                         const std::vector<std::string>& environment) {
  return Command(words, folder, environment).Wait();
}

}  // namespace kestrin::test
