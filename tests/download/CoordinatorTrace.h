// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "download/DownloadFixture.h"
#include "download/MVThemeDownLoader_CheckCfg.h"

#include <QObject>
#include <QThread>

/// Records what the coordinator logs and reports, in order: the entries of DownloadTrace; "start
/// XML TEXT", "start previews TEXT", "update" and "end XML" for its signals; "check N" and
/// "previews FETCHED PRESENT FAILED 0|1" for its callbacks, marked as foreign if called on another
/// thread.
class CoordinatorTrace : public DownloadTrace
{
public:
    CoordinatorTrace()
    {
        auto* const coordinator = MVThemeDownLoader_CheckCfg::instance();
        using Coordinator = MVThemeDownLoader_CheckCfg;
        QObject::connect(coordinator, &Coordinator::sig_startDownloadXML, &m_context,
                         [this](const QString& text) { add(QStringLiteral("start XML ") + text); });
        QObject::connect(
            coordinator, &Coordinator::sig_startDownloadThumbAndGif, &m_context,
            [this](const QString& text) { add(QStringLiteral("start previews ") + text); });
        QObject::connect(coordinator, &Coordinator::sig_NeedUpdateApp, &m_context,
                         [this] { add(QStringLiteral("update")); });
        QObject::connect(coordinator, &Coordinator::sig_endDownloadXML, &m_context,
                         [this] { add(QStringLiteral("end XML")); });
        Coordinator::setCatalogueCheckCallback([this](const SCatalogueCheckResult& result) {
            addOwn(QStringLiteral("check %1").arg(static_cast<int>(result.m_eEnd)));
        });
        Coordinator::setPreviewRunCallback([this](const SPreviewRunResult& result) {
            addOwn(QStringLiteral("previews %1 %2 %3 %4")
                       .arg(result.m_nFetched)
                       .arg(result.m_nPresent)
                       .arg(result.m_nFailed)
                       .arg(result.m_bWorkedThrough));
        });
    }
    ~CoordinatorTrace()
    {
        MVThemeDownLoader_CheckCfg::setCatalogueCheckCallback({});
        MVThemeDownLoader_CheckCfg::setPreviewRunCallback({});
    }
    Q_DISABLE_COPY_MOVE(CoordinatorTrace)

    int checks() const { return countContaining(QStringLiteral("check ")); }

    /// Returns whether every check and every run that was started has ended.
    bool isIdle() const
    {
        return count(checkEnded()) == count(QStringLiteral("start XML start!"))
            && count(runEnded()) == count(QStringLiteral("start previews start!"))
            && count(checkEnded()) <= count(QStringLiteral("start previews start!"));
    }

    static QString checkEnded()
    {
        return QStringLiteral(
            "MVThemeDownLoader_CheckCfg CheckCfgWorker onFinished! m_pWorker->deleteLater();");
    }
    static QString runEnded()
    {
        return QStringLiteral("MVThemeDownLoader_CheckCfg onEndDownloadThumbAndGif onFinished! "
                              "m_pWorker_ThumbAndGif->deleteLater();");
    }
    static QString checkStarted()
    {
        return QStringLiteral("MVThemeDownLoader 2: MVThemeDownLoader_CheckCfg startDownloadXML, "
                              "download start!");
    }
    static QString checkRefused()
    {
        return QStringLiteral("MVThemeDownLoader 2: MVThemeDownLoader_CheckCfg startDownloadXML, "
                              "but it is downloading!");
    }
    static QString runStarted()
    {
        return QStringLiteral(
            "MVThemeDownLoader_CheckCfg sig_startDownloadThumbAndGif, download start!");
    }
    static QString runRefused()
    {
        return QStringLiteral(
            "m_pWorker_ThumbAndGif startDownloadThumbAndGif, but it is downloading!");
    }
    static QString called(const char* operation)
    {
        return QStringLiteral("MVThemeDownLoader_CheckCfg %1()")
            .arg(QString::fromLatin1(operation));
    }

private:
    void addOwn(const QString& entry)
    {
        const bool own =
            QThread::currentThread() == MVThemeDownLoader_CheckCfg::instance()->thread();
        add(own ? entry : QStringLiteral("foreign ") + entry);
    }

    QObject m_context; // its destruction ends the connections
};
