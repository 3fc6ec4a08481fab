#include "engines/columns/Cells.h"

#include <charconv>

namespace qv {
namespace {

template <class Real>
void AppendShortest(std::string& out, Real value) {
  char text[32];
  const auto result = std::to_chars(text, text + sizeof text, value);
  out.append(text, static_cast<std::size_t>(result.ptr - text));
}

}  // namespace

void AppendReal(std::string& out, float value) { AppendShortest(out, value); }

void AppendReal(std::string& out, double value) { AppendShortest(out, value); }

}  // namespace qv
