// The tests' own spreadsheet application: started by COM as "Excel.Application", it keeps cells, insists on
// every call being made as it must be, and records the conversation. It serves one test program and ends with
// it, never of itself: COM would wait for ever for a server that ends while it is being asked for an object.

#include "workbook/automation/ServerObject.h"

#include <objbase.h>

#include <cstdint>

namespace {

std::filesystem::path ProgramPath() {
  wchar_t path[MAX_PATH];
  GetModuleFileNameW(nullptr, path, MAX_PATH);
  return path;
}

void CALLBACK EndWithClient(void* mainThread, BOOLEAN) {
  PostThreadMessageW(static_cast<DWORD>(reinterpret_cast<std::uintptr_t>(mainThread)), WM_QUIT, 0, 0);
}

/// Has the message loop of this thread end when the test program does.
bool FollowClient() {
  const HANDLE client = OpenProcess(SYNCHRONIZE, FALSE, server::Plan::Read(ProgramPath()).client);
  HANDLE wait = nullptr;
  return client != nullptr &&
         RegisterWaitForSingleObject(&wait, client, EndWithClient,
                                     reinterpret_cast<void*>(std::uintptr_t{GetCurrentThreadId()}), INFINITE,
                                     WT_EXECUTEONLYONCE);
}

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
    auto* const application =
        new server::Object(std::make_shared<server::Session>(ProgramPath()), server::Kind::Application);
    const HRESULT result = application->QueryInterface(id, object);
    application->Release();
    return result;
  }
};

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, wchar_t*, int) {
  MSG message;
  PeekMessageW(&message, nullptr, WM_USER, WM_USER, PM_NOREMOVE);  // makes the queue that is posted to
  if (!FollowClient() || FAILED(CoInitialize(nullptr))) return 1;
  Factory factory;
  DWORD registration = 0;
  if (FAILED(CoRegisterClassObject(server::kClass, &factory, CLSCTX_LOCAL_SERVER, REGCLS_MULTIPLEUSE,
                                   &registration)))
    return 1;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
  CoRevokeClassObject(registration);
  CoUninitialize();
  return 0;
}
