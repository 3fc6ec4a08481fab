#pragma once

#include "platform/calc/OfficeText.h"

#include <com/sun/star/uno/Sequence.hxx>
#include <com/sun/star/uno/XComponentContext.hpp>

namespace qv {

/// The rank of the sheet that the workbook at `url` was saved with as the active one; 0 where the file is no
/// binary workbook. The office itself knows it only for documents that it shows.
sal_Int32 ActiveSheetOf(const css::uno::Reference<css::uno::XComponentContext>& office, const OUString& url);

/// The same, from the start of a binary workbook's stream of records.
sal_Int32 ActiveSheetIn(const css::uno::Sequence<sal_Int8>& records);

}  // namespace qv
