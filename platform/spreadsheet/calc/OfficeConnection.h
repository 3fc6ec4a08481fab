#pragma once

#include <com/sun/star/frame/XDesktop2.hpp>
#include <com/sun/star/uno/XComponentContext.hpp>

#include <memory>
#include <string>

namespace qv {

class OfficeProcess;

/// A running office and the line to it. The destructor ends both.
class OfficeConnection {
 public:
  /// Throws SpreadsheetError when the office does not start, or css::uno::Exception.
  explicit OfficeConnection(const std::string& programFolder);
  ~OfficeConnection();
  OfficeConnection(const OfficeConnection&) = delete;
  OfficeConnection& operator=(const OfficeConnection&) = delete;

  const css::uno::Reference<css::frame::XDesktop2>& Desktop() const { return desktop_; }

  /// Tells the office to end and waits until it has. Throws css::uno::Exception when it refuses.
  void Quit();

 private:
  void Connect();

  std::unique_ptr<OfficeProcess> process_;                    // first, so that it goes last
  css::uno::Reference<css::uno::XComponentContext> context_;  // this process's
  css::uno::Reference<css::uno::XComponentContext> office_;
  css::uno::Reference<css::frame::XDesktop2> desktop_;
};

}  // namespace qv
