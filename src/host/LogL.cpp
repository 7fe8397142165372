// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/LogL.h"

#include "host/Immortal.h"
#include "host/LogFormat.h"

#include <QLoggingCategory>

#include <cstdarg>
#include <map>
#include <memory>
#include <mutex>

namespace {

/// A category and the storage of its name, to which QLoggingCategory only points.
struct Category
{
    explicit Category(const QByteArray& categoryName)
        : name(categoryName)
        , category(name.constData(), QtWarningMsg)
    {
    }
    QByteArray name;
    QLoggingCategory category;
};

struct LogState
{
    std::mutex mutex;                    // guards sink and categories
    std::shared_ptr<const LogSink> sink; // null: the default
    std::map<QByteArray, std::unique_ptr<Category>> categories;
};

LogState& state()
{
    static Immortal<LogState> log;
    return *log;
}

QLoggingCategory& categoryOf(const QByteArray& name)
{
    const std::lock_guard<std::mutex> lock(state().mutex);
    std::unique_ptr<Category>& entry = state().categories[name];
    if (!entry)
        entry = std::make_unique<Category>(name);
    return entry->category;
}

void writeToQt(const QByteArray& name, int level, const QByteArray& text)
{
    const QLoggingCategory& category = categoryOf(name);
    const QMessageLogger logger(nullptr, 0, nullptr, category.categoryName());
    if (level >= LogLevel::warning) {
        if (category.isWarningEnabled())
            logger.warning("%s", text.constData());
    } else if (level >= LogLevel::event) {
        if (category.isInfoEnabled())
            logger.info("%s", text.constData());
    } else if (category.isDebugEnabled()) {
        logger.debug("%s", text.constData());
    }
}

} // namespace

void LogL(const char* category, int level, const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const QByteArray text = LogFormat::fill(format, arguments);
    va_end(arguments);

    std::shared_ptr<const LogSink> sink;
    {
        const std::lock_guard<std::mutex> lock(state().mutex);
        sink = state().sink;
    }
    // Called without the lock: a sink may log or replace itself.
    if (sink)
        (*sink)(category, level, text);
    else
        writeToQt(category, level, text);
}

LogSink setLogSink(LogSink sink)
{
    auto replacement = sink ? std::make_shared<const LogSink>(std::move(sink)) : nullptr;
    const std::lock_guard<std::mutex> lock(state().mutex);
    state().sink.swap(replacement);
    return replacement ? *replacement : LogSink();
}
