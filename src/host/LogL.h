#pragma once

#include "host/MvHostExport.h"

#include <QByteArray>

#include <functional>

/// Levels of LogL().
namespace LogLevel {
constexpr int detail = 1;
constexpr int event = 2;
constexpr int warning = 3;
} // namespace LogLevel

/// Writes one line to the host's log. Callable from every thread.
///
/// `category` names the part that speaks ("MVThemeMgr", "CheckCfgWorker", ...). `level` is 1 for
/// details, 2 for events and 3 for warnings: what the host's developer must see, such as a mistake
/// in how the library is used or installed. `format` is printf-style: flags, width, precision, the
/// length modifiers hh, h, l, ll, z, j, t and the conversions d i u o x X c s p e E f F g G %.
/// Strings are passed as UTF-8 through "%s"; a null one reads "(null)". Whatever is not such a
/// conversion ("%1]", a lone "%") stands in the log as it stands in the format and takes no
/// argument, so texts with numbered placeholders are safe.
MVHOST_EXPORT void LogL(const char* category, int level, const char* format, ...);

/// Receives finished lines (UTF-8, no line end). May be called from several threads at once.
using LogSink = std::function<void(const QByteArray& category, int level, const QByteArray& text)>;

/// Replaces where lines go and returns what was there before. An empty sink brings the default
/// back. A line that another thread is writing meanwhile may still reach the old sink.
///
/// The default writes to one QLoggingCategory per category: level 1 and below as debug, 2 as info,
/// 3 and above as warning. Only warnings are enabled; filter rules enable the rest
/// (QLoggingCategory::setFilterRules() or the environment):
///
///     QT_LOGGING_RULES="MVThemeMgr=true"          everything of one category
///     QT_LOGGING_RULES="MVThemeMgr.debug=true"    its details
///     QT_LOGGING_RULES="*.info=true"              the events of all categories
///
/// A sink receives all lines, whatever the rules.
MVHOST_EXPORT LogSink setLogSink(LogSink sink);
