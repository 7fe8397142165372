// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "AboutDialog.h"

#include "catalogue/MVThemeMgr.h"
#include "DownloadFolder.h"
#include "host/HostSettings.h"
#include "host/ProductParam.h"

#include <QApplication>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QScreen>
#include <QStringList>
#include <QSysInfo>
#include <QUrl>
#include <QVBoxLayout>

namespace {

QLabel* newText(const char* name, const QString& text, QWidget* parent)
{
    auto* const label = new QLabel(text, parent);
    label->setObjectName(QString::fromLatin1(name));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    return label;
}

QString numbersOf(const QScreen& screen)
{
    return QStringLiteral("screen: %1 x %2, scale %3")
        .arg(QString::number(screen.size().width()), QString::number(screen.size().height()),
             QString::number(screen.devicePixelRatio()));
}

} // namespace

AboutDialog::AboutDialog(QWidget* parent)
    : QDialog(parent)
{
    setObjectName(QStringLiteral("about"));
    setWindowTitle(tr("About this program"));
    auto* const buttons = new QDialogButtonBox(this);
    QPushButton* const copy = buttons->addButton(tr("Copy report"), QDialogButtonBox::ActionRole);
    copy->setObjectName(QStringLiteral("aboutCopy"));
    copy->setToolTip(tr("Copies versions, folders and settings for a report of a fault"));
    QPushButton* const close = buttons->addButton(tr("Close"), QDialogButtonBox::RejectRole);
    close->setObjectName(QStringLiteral("aboutClose"));
    close->setDefault(true);
    auto* const layout = new QVBoxLayout(this);
    const QString version = QCoreApplication::applicationVersion();
    layout->addWidget(
        newText("aboutVersion",
                tr("mveditor %1, with Qt %2").arg(version, QString::fromLatin1(qVersion())), this));
    layout->addWidget(
        newText("aboutLicence",
                tr("Licence: %1").arg(QStringLiteral("MIT, © The mvresource contributors")), this));
    layout->addWidget(newText("aboutFolders", foldersText(), this));
    layout->addStretch();
    layout->addWidget(buttons);
    connect(copy, &QPushButton::clicked, this,
            [] { QGuiApplication::clipboard()->setText(report()); });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    constexpr int firstWidth = 460;
    resize(firstWidth, heightForWidth(firstWidth));
}

QString AboutDialog::foldersText()
{
    const QStringList lines{tr("Downloads: %1").arg(DownloadFolder::inUse()),
                            tr("Favorites: %1").arg(hostSettings().dataLocation),
                            tr("Installed resources: %1").arg(hostSettings().resourcesPath)};
    return lines.join(QLatin1Char('\n'));
}

QString AboutDialog::report()
{
    const HostSettings& settings = hostSettings();
    const QUrl server(ProductParam::text(ProductParam::serverRoot));
    const QString folder = DownloadFolder::inUse();
    const char* const writable = DownloadFolder::isWritable(folder) ? "writable" : "not writable";
    const QStringList lines{
        QStringLiteral("mveditor %1, Qt %2, %3")
            .arg(QCoreApplication::applicationVersion(), QString::fromLatin1(qVersion()),
                 QGuiApplication::platformName()),
        QStringLiteral("system: %1, %2")
            .arg(QSysInfo::prettyProductName(), QSysInfo::currentCpuArchitecture()),
        numbersOf(*QGuiApplication::primaryScreen()),
        QStringLiteral("language: %1").arg(QLocale().name()),
        QStringLiteral("skin: %1").arg(settings.currentSkin),
        QStringLiteral("server: %1").arg(server.toString(QUrl::RemoveUserInfo | QUrl::RemoveQuery)),
        QStringLiteral("release policy: %1, keys: %2")
            .arg(QString::number(settings.releasePolicy),
                 QString::number(settings.releaseKeys.size())),
        QStringLiteral("connections: %1").arg(settings.transfersSideBySide),
        QStringLiteral("downloads: %1, %2, %3 bytes free")
            .arg(folder, QString::fromLatin1(writable),
                 QString::number(DownloadFolder::freeBytes(folder))),
        QStringLiteral("data: %1").arg(settings.dataLocation),
        QStringLiteral("themes: %1").arg(MVThemeMgr::init()->getThemes_Display().size()),
    };
    return lines.join(QLatin1Char('\n')) + QLatin1Char('\n');
}
