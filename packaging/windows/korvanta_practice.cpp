/// Starts a practice server and the client against it; when the client ends, so does the server.
/// Where a server listens already, only the client starts. All three lie in one folder.
#include <array>
#include <string>
#include <windows.h>

namespace {

constexpr const wchar_t* kTitle = L"Korvanta Practice";

/// Closed at the end of its life.
class Handle {
 public:
  explicit Handle(HANDLE handle) : handle_(handle) {}
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;
  ~Handle() { Close(); }

  HANDLE Get() const { return handle_; }
  void Close() {
    if (handle_ != nullptr) {
      CloseHandle(handle_);
      handle_ = nullptr;
    }
  }

 private:
  HANDLE handle_;
};

int Fail(const std::wstring& what) {
  MessageBoxW(nullptr, what.c_str(), kTitle, MB_OK | MB_ICONERROR);
  return 1;
}

std::wstring ProgramFolder() {
  std::wstring file(32768, L'\0');
  file.resize(GetModuleFileNameW(nullptr, file.data(), static_cast<DWORD>(file.size())));
  return file.substr(0, file.rfind(L'\\') + 1);
}

/// Where the client looks for its server.
std::wstring ServerAddress(const std::wstring& folder) {
  std::array<wchar_t, 64> address;
  GetPrivateProfileStringW(L"Deployment", L"ServerAddress", L"127.0.0.1", address.data(),
                           static_cast<DWORD>(address.size()),
                           (folder + L"deployment.ini").c_str());
  return address.data();
}

/// Null when it cannot be started. It ends with `job` and prints to `output`, where there is one.
HANDLE Start(std::wstring command, const std::wstring& folder, HANDLE output, HANDLE job) {
  STARTUPINFOW start = {};
  start.cb = sizeof start;
  if (output != nullptr) {
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdOutput = output;
    start.hStdError = output;
  }
  PROCESS_INFORMATION process = {};
  if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, output != nullptr,
                      CREATE_NO_WINDOW | CREATE_SUSPENDED, nullptr, folder.c_str(), &start,
                      &process)) {
    return nullptr;
  }
  if (job != nullptr) {
    AssignProcessToJobObject(job, process.hProcess);
  }
  ResumeThread(process.hThread);
  CloseHandle(process.hThread);
  return process.hProcess;
}

/// Waits until the server says that it listens, or has said why it cannot and has ended.
void WaitUntilListening(HANDLE output) {
  std::string said;
  std::array<char, 512> buffer;
  DWORD count = 0;
  while (said.find("Listening on ") == std::string::npos &&
         ReadFile(output, buffer.data(), static_cast<DWORD>(buffer.size()), &count, nullptr) &&
         count > 0) {
    said.append(buffer.data(), count);
  }
}

/// Whatever belongs to it ends when its last handle is closed, however this program ends.
HANDLE MakeJob() {
  const HANDLE job = CreateJobObjectW(nullptr, nullptr);
  JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits = {};
  limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
  SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits, sizeof limits);
  return job;
}

int Run() {
  const std::wstring folder = ProgramFolder();
  const std::wstring address = ServerAddress(folder);
  if (!address.starts_with(L"127.")) {
    return Fail(L"deployment.ini names the game server " + address +
                L"; there is practice only at 127.0.0.1.");
  }
  SECURITY_ATTRIBUTES inherited = {sizeof inherited, nullptr, TRUE};
  HANDLE read_end = nullptr;
  HANDLE write_end = nullptr;
  if (!CreatePipe(&read_end, &write_end, &inherited, 0)) {
    return Fail(L"The practice server cannot be listened to.");
  }
  const Handle output(read_end);
  Handle input(write_end);
  SetHandleInformation(output.Get(), HANDLE_FLAG_INHERIT, 0);
  const Handle server_job(MakeJob());
  const Handle server(
      Start(L"\"" + folder + L"korvanta-practice-server.exe\" --quiet --address " + address, folder,
            input.Get(), server_job.Get()));
  if (server.Get() == nullptr) {
    return Fail(L"The practice server cannot be started.");
  }
  input.Close();
  WaitUntilListening(output.Get());
  const Handle client(Start(L"\"" + folder + L"Korvanta.exe\"", folder, nullptr, nullptr));
  if (client.Get() == nullptr) {
    return Fail(L"Korvanta cannot be started.");
  }
  WaitForSingleObject(client.Get(), INFINITE);
  DWORD status = 0;
  GetExitCodeProcess(client.Get(), &status);
  return static_cast<int>(status);
}

}  // namespace

int WINAPI WinMain(HINSTANCE /*instance*/, HINSTANCE /*previous*/, LPSTR /*command*/,
                   int /*show*/) {
  return Run();
}
