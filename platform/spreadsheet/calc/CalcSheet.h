#pragma once

#include "platform/spreadsheet/SpreadsheetApplication.h"
#include "platform/spreadsheet/WorkbookFacts.h"

#include <com/sun/star/frame/XModel.hpp>

namespace qv {

/// A sheet of a Calc document. Cells are read and written in blocks of rows, as each call to the office takes
/// a while, of a cell as of a thousand. `marks` are those of WorkbookFacts; nothing where it knows nothing.
/// Throws css::uno::Exception.
std::unique_ptr<Worksheet> MakeCalcSheet(const css::uno::Reference<css::uno::XInterface>& sheet,
                                         const css::uno::Reference<css::frame::XModel>& document,
                                         std::optional<WorkbookFacts::Marks> marks = {});

}  // namespace qv
