// The tests' own spreadsheet application: started by COM as "Excel.Application", it keeps cells, insists on
// every call being made as it must be, and records the conversation. It waits for a further client for a
// while, as starting it anew takes long.

#include "workbook/automation/ServerObject.h"

#include <objbase.h>

namespace {

constexpr UINT kIdleMilliseconds = 5000;

std::filesystem::path ProgramPath() {
  wchar_t path[MAX_PATH];
  GetModuleFileNameW(nullptr, path, MAX_PATH);
  return path;
}

UINT_PTR idleTimer = 0;

void RestartIdleTimer() { idleTimer = SetTimer(nullptr, idleTimer, kIdleMilliseconds, nullptr); }

class Factory final : public IClassFactory {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    const bool isKnown = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IClassFactory);
    *object = isKnown ? this : nullptr;
    return isKnown ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** object) override {
    if (outer != nullptr) return CLASS_E_NOAGGREGATION;
    RestartIdleTimer();
    auto* const application =
        new server::Object(std::make_shared<server::Session>(ProgramPath()), server::Kind::Application);
    const HRESULT result = application->QueryInterface(id, object);
    application->Release();
    return result;
  }
};

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, wchar_t*, int) {
  if (FAILED(CoInitialize(nullptr))) return 1;
  Factory factory;
  DWORD registration = 0;
  if (FAILED(CoRegisterClassObject(server::kClass, &factory, CLSCTX_LOCAL_SERVER, REGCLS_MULTIPLEUSE,
                                   &registration)))
    return 1;
  RestartIdleTimer();
  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    const bool isIdle = message.message == WM_TIMER && message.hwnd == nullptr;
    if (isIdle && server::Object::CountAll() == 0) break;
    DispatchMessageW(&message);
  }
  CoRevokeClassObject(registration);
  CoUninitialize();
  return 0;
}
