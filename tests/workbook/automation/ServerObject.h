#pragma once

#include "workbook/automation/Conversation.h"
#include "workbook/automation/ServerBook.h"

#include <windows.h>

#include <oaidl.h>

#include <memory>
#include <string>

namespace server {

/// One application: its workbook, its record, and how many of its objects a client holds.
struct Session {
  explicit Session(const std::filesystem::path& program) : conversation(program) {}

  Conversation conversation;
  Book book;
  bool hasQuit = false;
  long objects = 0;
};

enum class Kind { Application, Workbooks, Workbook, Sheets, Worksheet, Range };

/// A rectangle of cells; a sheet's own when it is empty.
struct Area {
  long rows = 0;
  long columns = 0;
  long row = 0;  // of a single cell
  long column = 0;
};

/// An object of the application. Which members its kind has, and what each must be given, stands in one
/// table; everything else is a violation.
class Object final : public IDispatch {
 public:
  Object(std::shared_ptr<Session> session, Kind kind, std::string sheet = {}, Area area = {});

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override;
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                          DISPID* members) override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID, WORD kind, DISPPARAMS* parameters,
                                   VARIANT* result, EXCEPINFO* exception, UINT*) override;

  /// A new object of the same application, as a result.
  HRESULT Give(VARIANT* result, Kind kind, std::string sheet = {}, Area area = {}) const;

  Session& GetSession() const { return *session_; }
  Sheet& GetSheet() const { return session_->book.sheets[session_->book.Find(sheet_)]; }
  const std::string& SheetName() const { return sheet_; }
  const Area& GetArea() const { return area_; }

 private:
  ~Object();

  std::shared_ptr<Session> session_;
  Kind kind_;
  std::string sheet_;
  Area area_;
  ULONG references_ = 1;
  bool lookedUp_ = false;  // the member that may only be called by its name has just been looked up
};

}  // namespace server
