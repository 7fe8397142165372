// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "DemoProgram.h"

#include "catalogue/MVThemeMgr.h"
#include "DemoCommandLine.h"
#include "DemoWorld.h"
#include "gui/ScriptRun.h"
#include "host/HostSettings.h"
#include "host/ProductParam.h"
#include "MainWindow.h"
#include "Preferences.h"
#include "records/SCfg_Item.h"
#include "ServerSilence.h"

#include <QClipboard>
#include <QElapsedTimer>
#include <QFile>
#include <QGuiApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QMap>
#include <QVector>

#include <chrono>
#include <cstdio>
#include <memory>

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
    if (m_commandLine.isFirstStart)
        settings.productParams.remove(ProductParam::serverRoot);
    return true;
}

QString DemoProgram::preferencesFile() const
{
    const QString file = m_commandLine.showsSamples()
        ? m_world.folder() + QStringLiteral("/preferences.json")
        : EditorProgram::preferencesFile();
    if (!m_commandLine.skin.isEmpty())
        Preferences(file).setSkin(m_commandLine.skin);
    return file;
}

int DemoProgram::exec(MainWindow& window, CatalogueUpdate& check)
{
    ScriptRun script(window, check, m_commandLine.scriptFile, m_commandLine.screenshotFolder);
    if (!script.isReady())
        return refuse(script.errorText());
    addWindowVerbs(script, window);
    if (m_commandLine.showsSamples())
        addServerVerbs(script, window);
    if (DemoShop* const shop = m_world.shop()) {
        if (m_commandLine.scriptFile.isEmpty())
            std::printf("%s\n", qPrintable(shop->instructions()));
        addShopVerbs(script, *shop);
    }
    // Once the window is shown and its events are handled.
    QMetaObject::invokeMethod(&script, &ScriptRun::start, Qt::QueuedConnection);
    const int status = EditorProgram::exec(window, check);
    return script.hasFailed() ? exitFailure : status;
}

void DemoProgram::addWindowVerbs(ScriptRun& script, MainWindow& window)
{
    script.addVerb(QStringLiteral("size"), [&window](const QStringList& words, QString&) {
        window.resize(words.value(0).toInt(), words.value(1).toInt());
        return true;
    });
    auto pause = std::make_shared<QElapsedTimer>();
    script.addVerb(QStringLiteral("pause"), [pause](const QStringList& words, QString&) {
        if (!pause->isValid())
            pause->start();
        const bool isOver = pause->hasExpired(words.value(0).toInt());
        if (isOver)
            pause->invalidate();
        return isOver;
    });
    script.addVerb(QStringLiteral("patience"), [](const QStringList& words, QString&) {
        ServerSilence::setLimit(std::chrono::milliseconds(words.value(0).toInt()));
        return true;
    });
}

void DemoProgram::addShopVerbs(ScriptRun& script, DemoShop& shop)
{
    script.addVerb(QStringLiteral("correct"), [&shop](const QStringList& words, QString& error) {
        const bool isDone = shop.correct(words.value(0));
        error = shop.errorText();
        return isDone;
    });
    script.addVerb(QStringLiteral("publish"), [&shop](const QStringList&, QString& error) {
        const bool isDone = shop.publish();
        error = shop.errorText();
        return isDone;
    });
}

void DemoProgram::addServerVerbs(ScriptRun& script, MainWindow& window)
{
    script.addVerb(QStringLiteral("server"), [this](const QStringList& words, QString& error) {
        return setServer(words.value(0), error);
    });
    script.addVerb(QStringLiteral("copyserver"), [this](const QStringList&, QString&) {
        QGuiApplication::clipboard()->setText(m_world.serverUrl());
        return true;
    });
    script.addVerb(QStringLiteral("project"),
                   [this, &window](const QStringList& words, QString& error) {
                       return openProject(window, words, error);
                   });
}

bool DemoProgram::setServer(const QString& state, QString& error)
{
    const QMap<QString, DemoWorld::Server> states{
        {QStringLiteral("answers"), DemoWorld::Server::Answers},
        {QStringLiteral("is-silent"), DemoWorld::Server::IsSilent},
        {QStringLiteral("is-stopped"), DemoWorld::Server::IsStopped}};
    const auto found = states.constFind(state);
    if (found == states.cend())
        error = QStringLiteral("no such state of the server");
    else if (!m_world.setServer(*found))
        error = m_world.errorText();
    return error.isEmpty();
}

bool DemoProgram::openProject(MainWindow& window, const QStringList& themes, QString& error)
{
    QJsonArray items;
    const QVector<SCfg_Item>& all = MVThemeMgr::init()->getThemes_Display();
    for (const SCfg_Item& theme : all) {
        if (themes.contains(theme.m_qsName))
            items.append(theme.m_qsGUID);
    }
    QFile file(m_world.folder() + QStringLiteral("/holiday.json"));
    if (!file.open(QIODevice::WriteOnly) || file.write(QJsonDocument(items).toJson()) <= 0) {
        error = QStringLiteral("the project cannot be written");
        return false;
    }
    file.close();
    window.openProject(file.fileName());
    return true;
}
