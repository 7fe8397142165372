#pragma once

#include "host/MvHostExport.h"

#include <QByteArray>

#include <functional>

/// Writes one line to the host's log. Callable from every thread.
///
/// `category` names the part that speaks ("MVThemeMgr", "CheckCfgWorker", ...). `level` is 1 for
/// details and 2 for events. `format` is printf-style: flags, width, precision, the length
/// modifiers hh, h, l, ll, z, j, t and the conversions d i u o x X c s p e E f F g G %.
/// Strings are passed as UTF-8 through "%s"; a null one reads "(null)". Whatever is not such a
/// conversion ("%1]", a lone "%") stands in the log as it stands in the format and takes no
/// argument, so texts with numbered placeholders are safe.
MVHOST_EXPORT void LogL(const char* category, int level, const char* format, ...);

/// Receives finished lines (UTF-8, no line end). May be called from several threads at once.
using LogSink = std::function<void(const QByteArray& category, int level, const QByteArray& text)>;

/// Replaces where lines go and returns what was there before. An empty sink brings the default
/// back: one QLoggingCategory per category, level 1 and below as debug, level 2 and above as info.
/// A line that another thread is writing meanwhile may still reach the old sink.
MVHOST_EXPORT LogSink setLogSink(LogSink sink);
