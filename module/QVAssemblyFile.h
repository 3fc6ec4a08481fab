#pragma once

/// Everything a host needs: the manager, the records and the handlers.

#include <QVAssemblyFile/CAssemblyFileMgr.h>
#include <QVAssemblyFile/CString.h>
#include <QVAssemblyFile/Diagnostics.h>
#include <QVAssemblyFile/FileProgress.h>
#include <QVAssemblyFile/JobProgressInfo.h>
#include <QVAssemblyFile/MatAmncITInfo.h>
#include <QVAssemblyFile/MatLibraryInfo.h>
#include <QVAssemblyFile/MaterialInfomation.h>
#include <QVAssemblyFile/MessageBox.h>
#include <QVAssemblyFile/PartInformation.h>
#include <QVAssemblyFile/PrtInfo.h>
#include <QVAssemblyFile/RecordKind.h>
#include <QVAssemblyFile/RecordStream.h>
#include <QVAssemblyFile/ShtInfo.h>
#include <QVAssemblyFile/ToolInformation.h>
