// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "DemoProgram.h"

#include "DemoCommandLine.h"
#include "DemoWorld.h"
#include "gui/ScriptRun.h"

#include <cstdio>

DemoProgram::DemoProgram(DemoCommandLine& commandLine, DemoWorld& world)
    : EditorProgram(commandLine)
    , m_commandLine(commandLine)
    , m_world(world)
{
}

bool DemoProgram::prepare(HostSettings& settings, QString& error)
{
    if (!m_commandLine.showsSamples())
        return true;
    if (!m_world.start()) {
        error = m_world.errorText();
        return false;
    }
    m_world.describe(settings);
    return true;
}

QString DemoProgram::preferencesFile() const
{
    return m_commandLine.showsSamples() ? m_world.folder() + QStringLiteral("/preferences.json")
                                        : EditorProgram::preferencesFile();
}

int DemoProgram::exec(MainWindow& window, CatalogueUpdate& check)
{
    ScriptRun script(window, check, m_commandLine.scriptFile, m_commandLine.screenshotFolder);
    if (!script.isReady())
        return refuse(script.errorText());
    if (DemoShop* const shop = m_world.shop()) {
        if (m_commandLine.scriptFile.isEmpty())
            std::printf("%s\n", qPrintable(shop->instructions()));
        script.addVerb(QStringLiteral("correct"), [shop](const QStringList& words, QString& error) {
            const bool isDone = shop->correct(words.value(0));
            error = shop->errorText();
            return isDone;
        });
        script.addVerb(QStringLiteral("publish"), [shop](const QStringList&, QString& error) {
            const bool isDone = shop->publish();
            error = shop->errorText();
            return isDone;
        });
    }
    // Once the window is shown and its events are handled.
    QMetaObject::invokeMethod(&script, &ScriptRun::start, Qt::QueuedConnection);
    const int status = EditorProgram::exec(window, check);
    return script.hasFailed() ? exitFailure : status;
}
