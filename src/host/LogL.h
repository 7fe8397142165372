// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/MvHostExport.h"

#include <QByteArray>

#include <functional>

/// Levels of LogL().
namespace LogLevel {
constexpr int detail = 1;  ///< for tracing a part
constexpr int event = 2;   ///< for following what happens
constexpr int warning = 3; ///< for the host's developer
} // namespace LogLevel

/// Writes one line to the host's log. Callable from every thread.
///
/// `category` names the part of the library ("MVThemeMgr", "CheckCfgWorker", ...). `level` is 1 for
/// details, 2 for events and 3 for warnings to the host's developer, such as incorrect use or
/// installation of the library. `format` is printf-style: flags, width, precision, the length
/// modifiers hh, h, l, ll, z, j, t and the conversions d i u o x X c s p e E f F g G %. Strings are
/// passed as UTF-8 through "%s"; a null one is written as "(null)". Anything else that looks like a
/// conversion ("%1]", a lone "%") is copied verbatim and takes no argument, so texts with numbered
/// placeholders are safe.
MVHOST_EXPORT void LogL(const char* category, int level, const char* format, ...);

/// Receives finished lines (UTF-8, no line end). May be called from several threads at once.
using LogSink = std::function<void(const QByteArray& category, int level, const QByteArray& text)>;

/// Replaces the destination of lines and returns the previous one. An empty sink restores the
/// default. A line that another thread is writing meanwhile may still reach the old sink.
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
