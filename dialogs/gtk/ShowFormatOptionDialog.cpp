#include "dialogs/gtk/DialogModule.h"
#include "dialogs/model/FormatOptionPresenter.h"
#include "manager/FormatOptionDialog.h"
#include "manager/SettingsFile.h"
#include "platform/DynamicLibrary.h"
#include "platform/Handlers.h"

#include <dlfcn.h>

#include <string>

namespace {

// A module of its own, so that a host without a user interface need not have the toolkit installed.
void* LoadDialogModule() {
  const std::string path = qv::FindComponent(std::string(qv::kDialogModuleName) + ".so");
  return path.empty() ? nullptr : dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
}

struct DialogModule {
  qv::HasDisplayFunction hasDisplay = nullptr;
  qv::RunDialogFunction runDialog = nullptr;
};

DialogModule FindDialogModule() {
  void* const module = LoadDialogModule();
  if (module == nullptr) return {};
  return {reinterpret_cast<qv::HasDisplayFunction>(qv::FindFunction(module, qv::kHasDisplayName)),
          reinterpret_cast<qv::RunDialogFunction>(qv::FindFunction(module, qv::kRunDialogName))};
}

const DialogModule& TheDialogModule() {
  static const DialogModule module = FindDialogModule();
  return module;
}

}  // namespace

std::string WhyNoFormatOptionDialog() {
  const DialogModule& module = TheDialogModule();
  if (module.hasDisplay == nullptr || module.runDialog == nullptr)
    return "This build has no format option dialog.";
  return module.hasDisplay() ? "" : "There is no display to show the format option dialog on.";
}

bool ShowFormatOptionDialog(const FormatOptionRequest& request) {
  if (const std::string reason = WhyNoFormatOptionDialog(); !reason.empty()) {
    qv::ShowMessage(reason.c_str());
    return false;
  }
  qv::FormatOptionPresenter presenter(request, SettingsFilePath());
  const bool isOk = TheDialogModule().runDialog(presenter);
  presenter.RethrowFailure();
  return isOk;
}
