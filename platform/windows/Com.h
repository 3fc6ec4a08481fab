#pragma once

#include "platform/windows/WideText.h"

#include <windows.h>

#include <objbase.h>
#include <oleauto.h>
#include <wrl/client.h>

#include <string>
#include <string_view>
#include <utility>

namespace qv {

/// Keeps COM on the thread. A thread that has COM of another kind keeps it, and there is nothing to give
/// back.
class ComScope {
 public:
  ComScope() : active_(SUCCEEDED(CoInitialize(nullptr))) {}
  ~ComScope() {
    if (active_) CoUninitialize();
  }
  ComScope(const ComScope&) = delete;
  ComScope& operator=(const ComScope&) = delete;

 private:
  bool active_;
};

/// Owns one reference to a COM object.
using Microsoft::WRL::ComPtr;

/// Owns a string of the automation interfaces.
class Bstr {
 public:
  Bstr() = default;
  explicit Bstr(std::wstring_view text)
      : text_(SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {}
  /// From text of the process's code page.
  explicit Bstr(std::string_view text) : Bstr(std::wstring_view(Widen(text))) {}
  ~Bstr() { SysFreeString(text_); }
  Bstr(const Bstr&) = delete;
  Bstr& operator=(const Bstr&) = delete;

  BSTR Get() const { return text_; }
  BSTR* Receive() {
    SysFreeString(std::exchange(text_, nullptr));
    return &text_;
  }
  std::wstring_view View() const { return {text_, SysStringLen(text_)}; }

 private:
  BSTR text_ = nullptr;
};

/// Owns a value of the automation interfaces.
class Variant {
 public:
  Variant() { VariantInit(&value_); }
  Variant(Variant&& other) noexcept : value_(std::exchange(other.value_, VARIANT{})) {}
  ~Variant() { VariantClear(&value_); }
  Variant(const Variant&) = delete;
  Variant& operator=(const Variant&) = delete;

  static VARIANT_BOOL Boolean(bool value) { return value ? VARIANT_TRUE : VARIANT_FALSE; }

  void SetText(std::wstring_view text) {
    VariantClear(&value_);
    value_.vt = VT_BSTR;
    value_.bstrVal = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
  }

  /// The object is the variant's from here on.
  template <class Interface>
  void SetObject(const ComPtr<Interface>& object) {
    VariantClear(&value_);
    object->AddRef();
    value_.vt = VT_UNKNOWN;
    value_.punkVal = object.Get();
  }

  /// The value as text of the process's code page; empty for no value.
  std::string Text() const {
    if (value_.vt == VT_NULL || value_.vt == VT_EMPTY) return {};
    Variant text;
    if (FAILED(VariantChangeType(&text.value_, const_cast<VARIANT*>(&value_), 0, VT_BSTR))) return {};
    return Narrow({text.value_.bstrVal, SysStringLen(text.value_.bstrVal)});
  }

  const VARIANT& Get() const { return value_; }
  VARIANT* Receive() {
    VariantClear(&value_);
    return &value_;
  }

 private:
  VARIANT value_;
};

}  // namespace qv
