// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "SettingsDialog.h"

#include "AppLanguage.h"
#include "browser/BrowserLanguage.h"
#include "browser/BrowserSkin.h"
#include "DownloadFolder.h"
#include "host/HostSettings.h"
#include "host/ProductParam.h"
#include "NamedComboBox.h"
#include "Preferences.h"
#include "ServerAddress.h"
#include "ServerField.h"
#include "StateText.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QSpinBox>
#include <QVBoxLayout>

#include <memory>

namespace {

void select(QComboBox* box, const QVariant& value)
{
    box->setCurrentIndex(qMax(0, box->findData(value)));
}

} // namespace

SettingsDialog::SettingsDialog(Preferences& preferences, Given given, QWidget* parent)
    : QDialog(parent)
    , m_preferences(preferences)
    , m_given(given)
    , m_server(new ServerField(QStringLiteral("settingsServer"), this))
    , m_folder(new QLineEdit(this))
    , m_choose(new QPushButton(tr("Change…"), this))
    , m_space(new QLabel(this))
    , m_connections(new QSpinBox(this))
    , m_click(new NamedComboBox(this))
    , m_motion(new NamedComboBox(this))
    , m_language(new NamedComboBox(this))
    , m_skin(new NamedComboBox(this))
    , m_scale(new NamedComboBox(this))
    , m_problem(new QLabel(this))
    , m_buttons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this))
    , m_queue(this)
{
    setObjectName(QStringLiteral("settings"));
    setWindowTitle(tr("Settings"));
    createParts();
    fillChoices();
    arrange();
    m_server->setText(ProductParam::text(ProductParam::serverRoot));
    m_server->setEnabled(!m_given.server);
    m_choose->setEnabled(!m_given.folder);
    const QString chosen = m_preferences.downloadFolder();
    m_firstFolder = chosen.isEmpty() || m_given.folder ? DownloadFolder::inUse() : chosen;
    setFolder(m_firstFolder);
    connect(m_choose, &QPushButton::clicked, this, &SettingsDialog::chooseFolder);
    connect(m_buttons, &QDialogButtonBox::accepted, this, &SettingsDialog::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &SettingsDialog::reject);
}

SettingsDialog::~SettingsDialog()
{
    m_measuring.cancel();
    m_queue.shutDown();
}

void SettingsDialog::createParts()
{
    m_folder->setObjectName(QStringLiteral("settingsFolder"));
    m_folder->setReadOnly(true);
    m_choose->setObjectName(QStringLiteral("settingsFolderChoose"));
    m_choose->setAutoDefault(false);
    m_space->setObjectName(QStringLiteral("settingsSpace"));
    m_connections->setObjectName(QStringLiteral("settingsConnections"));
    m_connections->setRange(1, HostSettings::maxTransfersSideBySide);
    m_connections->setValue(hostSettings().transfersSideBySide);
    m_click->setObjectName(QStringLiteral("settingsClick"));
    m_motion->setObjectName(QStringLiteral("settingsMotion"));
    m_language->setObjectName(QStringLiteral("settingsLanguage"));
    m_skin->setObjectName(QStringLiteral("settingsSkin"));
    m_scale->setObjectName(QStringLiteral("settingsScale"));
    m_problem->setObjectName(QStringLiteral("settingsProblem"));
    for (QLabel* label : {m_space, m_problem}) {
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
    }
    m_problem->hide();
    m_buttons->button(QDialogButtonBox::Ok)->setObjectName(QStringLiteral("settingsOk"));
    m_buttons->button(QDialogButtonBox::Cancel)->setObjectName(QStringLiteral("settingsCancel"));
}

void SettingsDialog::fillChoices()
{
    m_click->addItem(tr("applies the item"), true);
    m_click->addItem(tr("selects the item and shows its details"), false);
    select(m_click, m_preferences.isAppliedByClick());
    using Motion = Preferences::Motion;
    m_motion->addItem(tr("As the desktop"), static_cast<int>(Motion::AsDesktop));
    m_motion->addItem(tr("Less motion"), static_cast<int>(Motion::Reduced));
    m_motion->addItem(tr("All previews move"), static_cast<int>(Motion::Full));
    select(m_motion, static_cast<int>(m_preferences.motion()));
    const QStringList languages = BrowserLanguage::languages();
    for (const QString& language : languages)
        m_language->addItem(AppLanguage::ownName(language), language);
    select(m_language, m_preferences.language());
    const QStringList skins = BrowserSkin::names();
    for (const QString& skin : skins)
        m_skin->addItem(skin, skin);
    select(m_skin, m_preferences.skin());
    m_scale->addItem(tr("As the screen"), 0);
    const QList<int> scales = Preferences::offeredScales();
    for (const int percent : scales)
        m_scale->addItem(tr("%1 %").arg(QLocale().toString(percent)), percent);
    select(m_scale, m_preferences.scale());
}

void SettingsDialog::arrange()
{
    auto* const folder = new QWidget(this);
    auto* const folderRow = new QHBoxLayout(folder);
    folderRow->setContentsMargins(0, 0, 0, 0);
    folderRow->addWidget(m_folder, 1);
    folderRow->addWidget(m_choose);
    auto* const content = new QWidget;
    auto* const form = new QFormLayout(content);
    form->setContentsMargins(0, 0, 0, 0);
    form->setRowWrapPolicy(QFormLayout::WrapLongRows);
    addRow(form, tr("Ser&ver:"), m_server);
    addRow(form, tr("&Download folder:"), folder);
    m_folder->setAccessibleName(tr("Download folder"));
    form->addRow(QString(), m_space);
    addRow(form, tr("&Connections:"), m_connections);
    addRow(form, tr("A cl&ick:"), m_click);
    addRow(form, tr("&Motion:"), m_motion);
    addRow(form, tr("&Language:"), m_language);
    addRow(form, tr("&Skin:"), m_skin);
    addRow(form, tr("Sc&ale:"), m_scale);
    m_connections->findChild<QLineEdit*>()->setAccessibleName(m_connections->accessibleName());
    m_connections->setToolTip(tr("Files that are fetched at the same time"));
    auto* const area = new QScrollArea(this); // for low screens
    area->setWidget(content);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(area, 1);
    layout->addWidget(m_problem);
    layout->addWidget(m_buttons);
    constexpr int firstWidth = 520;
    const int around = 3 * m_buttons->sizeHint().height(); // the buttons, margins and wrapped lines
    resize(QSize(firstWidth, content->sizeHint().height() + around)
               .boundedTo(screen()->availableSize()));
}

/// Names the field after its label for screen readers.
void SettingsDialog::addRow(QFormLayout* form, const QString& text, QWidget* field)
{
    form->addRow(text, field);
    QString name = text;
    name.remove(QLatin1Char('&')).chop(1);
    if (field->focusProxy() == nullptr)
        field->setAccessibleName(name);
}

void SettingsDialog::chooseFolder()
{
    const QString folder =
        QFileDialog::getExistingDirectory(this, tr("Download folder"), m_folder->text());
    if (!folder.isEmpty())
        setFolder(QDir::cleanPath(folder));
}

void SettingsDialog::setFolder(const QString& folder)
{
    m_folder->setText(folder);
    m_folder->setToolTip(folder);
    m_space->setText(tr("Measuring the folder…"));
    measure();
}

void SettingsDialog::measure()
{
    struct Space
    {
        qint64 used = 0;
        qint64 free = 0;
        bool isWritable = false;
    };
    m_measuring.cancel();
    m_measuring = CancelToken();
    const QString folder = m_folder->text();
    const CancelToken token = m_measuring;
    auto space = std::make_shared<Space>();
    WorkQueue::Job job;
    job.prepare = [=](const CancelToken&) -> WorkQueue::Work {
        return [=] {
            space->isWritable = DownloadFolder::isWritable(folder);
            space->used = DownloadFolder::usedBytes(folder, token);
            space->free = DownloadFolder::freeBytes(folder);
        };
    };
    job.ended = [=](bool) {
        if (token.isCancelled())
            return;
        m_space->setText(!space->isWritable ? tr("This folder is not writable")
                                            : tr("Used: %1, free: %2")
                                                  .arg(StateText::size(space->used),
                                                       StateText::size(space->free)));
    };
    m_queue.add(std::move(job));
}

void SettingsDialog::accept()
{
    if (storeAll())
        QDialog::accept();
}

bool SettingsDialog::storeAll()
{
    if (!storeServer() || !storeFolder())
        return false;
    const int connections = m_connections->value();
    if (connections != hostSettings().transfersSideBySide) {
        m_preferences.setConnections(connections);
        if (!isStored())
            return false;
        emit connectionsChosen(connections);
    }
    const bool isApplied = m_click->currentData().toBool();
    if (isApplied != m_preferences.isAppliedByClick()) {
        m_preferences.setAppliedByClick(isApplied);
        if (!isStored())
            return false;
        emit clickChosen();
    }
    return storeLook();
}

bool SettingsDialog::storeServer()
{
    const QString address = m_server->address();
    if (m_given.server
        || address == ServerAddress::normalized(ProductParam::text(ProductParam::serverRoot)))
        return true;
    m_preferences.setServer(address);
    if (!isStored())
        return false;
    emit serverChosen(address);
    return true;
}

bool SettingsDialog::storeFolder()
{
    const QString folder = m_folder->text();
    if (folder == m_firstFolder)
        return true;
    m_preferences.setDownloadFolder(folder);
    if (!isStored())
        return false;
    emit folderChosen(folder);
    return true;
}

bool SettingsDialog::storeLook()
{
    const auto motion = static_cast<Preferences::Motion>(m_motion->currentData().toInt());
    if (motion != m_preferences.motion()) {
        m_preferences.setMotion(motion);
        emit motionChosen();
    }
    if (m_skin->currentData() != m_preferences.skin())
        emit skinChosen(m_skin->currentData().toString());
    if (m_scale->currentData() != m_preferences.scale())
        emit scaleChosen(m_scale->currentData().toInt());
    if (m_language->currentData() != m_preferences.language())
        emit languageChosen(m_language->currentData().toString());
    return isStored();
}

/// Returns whether the last change was stored; otherwise says why it was not.
bool SettingsDialog::isStored()
{
    const QString error = m_preferences.storeError();
    m_problem->setText(tr("The settings cannot be saved: %1").arg(error));
    m_problem->setVisible(!error.isEmpty());
    return error.isEmpty();
}
