#include "dialogs/FormatOptionPresenter.h"
#include "dialogs/gtk/DialogModule.h"
#include "manager/FormatOptionDialog.h"
#include "manager/SettingsFile.h"
#include "platform/DynamicLibrary.h"
#include "platform/FileSystem.h"
#include "platform/MessageBox.h"

#include <dlfcn.h>

#include <string>

namespace {

std::string FolderOf(const std::string& path) { return path.substr(0, path.rfind('/') + 1); }

std::string FolderOfThisCode() {
  Dl_info info{};
  const bool isKnown = dladdr(reinterpret_cast<const void*>(&FolderOf), &info) != 0;
  return isKnown && info.dli_fname != nullptr ? FolderOf(info.dli_fname) : std::string();
}

// A module of its own, so that a host without a user interface need not have the toolkit installed.
void* LoadDialogModule() {
  const std::string fileName = std::string(qv::kDialogModuleName) + ".so";
  const std::string folders[] = {FolderOfThisCode(), FolderOf(qv::ProgramPath()) + QVASSEMBLY_LIBRARY_FOLDER};
  for (const std::string& folder : folders)
    if (void* module = dlopen((folder + fileName).c_str(), RTLD_NOW | RTLD_LOCAL)) return module;
  return qv::LoadLibraryByName(qv::kDialogModuleName);
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
  return TheDialogModule().runDialog(presenter);
}
