#include "workbook/automation/Server.h"

#include "workbook/automation/Conversation.h"

#include <fstream>

namespace {

constexpr int kMaxWaits = 500;
constexpr DWORD kWaitMilliseconds = 10;

std::filesystem::path ServerPath() {
  wchar_t path[MAX_PATH];
  GetModuleFileNameW(nullptr, path, MAX_PATH);
  return std::filesystem::path(path).replace_filename("spreadsheet_server.exe");
}

// The name that programs ask for, and where COM finds the program behind the class.
const std::wstring kNameKey = L"Software\\Classes\\Excel.Application";
const std::wstring kClassKey = std::wstring(L"Software\\Classes\\CLSID\\") + server::kClassText;

void SetKey(const std::wstring& key, const std::wstring& value) {
  RegSetKeyValueW(HKEY_LOCAL_MACHINE, key.c_str(), nullptr, REG_SZ, value.c_str(),
                  static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t)));
}

std::vector<std::string> ReadLines(const std::filesystem::path& path) {
  std::vector<std::string> lines;
  std::ifstream file(path);
  for (std::string line; std::getline(file, line);) lines.push_back(line);
  return lines;
}

}  // namespace

Server::Server() {
  SetPlan("");
  SetKey(kNameKey + L"\\CLSID", server::kClassText);
  SetKey(kClassKey + L"\\LocalServer32", L'"' + ServerPath().wstring() + L'"');
}

Server::~Server() {
  Unregister();
  std::filesystem::remove(server::FileBeside(ServerPath(), ".plan"));
}

bool Server::IsAllowed() {
  return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
}

void Server::SetPlan(const std::string& plan) {
  std::ofstream(server::FileBeside(ServerPath(), ".plan"))
      << "client " << GetCurrentProcessId() << ' ' << plan;
}

std::vector<std::string> Server::Record() const {
  for (int wait = 0; wait < kMaxWaits; ++wait) {
    const std::vector<std::string> lines = ReadLines(server::FileBeside(ServerPath(), ".log"));
    if (!lines.empty() && lines.back().starts_with("ended")) return lines;
    Sleep(kWaitMilliseconds);
  }
  return {};
}

void Server::Unregister() {
  for (const std::wstring& key : {kNameKey, kClassKey}) RegDeleteTreeW(HKEY_LOCAL_MACHINE, key.c_str());
}
