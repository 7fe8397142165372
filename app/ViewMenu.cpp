// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "ViewMenu.h"

#include "AppLanguage.h"
#include "browser/BrowserLanguage.h"
#include "browser/BrowserSkin.h"
#include "Preferences.h"

#include <QActionGroup>
#include <QEvent>
#include <QLocale>

ViewMenu::ViewMenu(const Preferences& preferences, QWidget* parent)
    : QMenu(parent)
    , m_skin(addMenu(QString()))
    , m_language(addMenu(QString()))
    , m_scale(addMenu(QString()))
    , m_motion(addAction(QString()))
{
    m_skin->menuAction()->setObjectName(QStringLiteral("skin"));
    m_language->menuAction()->setObjectName(QStringLiteral("language"));
    m_scale->menuAction()->setObjectName(QStringLiteral("scale"));
    m_motion->setObjectName(QStringLiteral("reduceMotion"));
    m_motion->setCheckable(true);
    m_motion->setChecked(preferences.isMotionReduced());
    connect(m_motion, &QAction::triggered, this, &ViewMenu::motionReducedChosen);

    QActionGroup* const skins = new QActionGroup(m_skin);
    const QStringList skinNames = BrowserSkin::names();
    for (const QString& skin : skinNames)
        addChoice(m_skin, skins, skin, skin, preferences.skin());
    connect(skins, &QActionGroup::triggered, this,
            [this](QAction* action) { emit skinChosen(action->data().toString()); });

    QActionGroup* const languages = new QActionGroup(m_language);
    const QStringList languageNames = BrowserLanguage::languages();
    for (const QString& language : languageNames)
        addChoice(m_language, languages, AppLanguage::ownName(language), language,
                  preferences.language());
    connect(languages, &QActionGroup::triggered, this,
            [this](QAction* action) { emit languageChosen(action->data().toString()); });

    QActionGroup* const scales = new QActionGroup(m_scale);
    m_screenScale = addChoice(m_scale, scales, QString(), 0, preferences.scale());
    const QList<int> percents = Preferences::offeredScales();
    for (const int percent : percents)
        addChoice(m_scale, scales, QString(), percent, preferences.scale());
    connect(scales, &QActionGroup::triggered, this,
            [this](QAction* action) { emit scaleChosen(action->data().toInt()); });
    retranslate();
}

void ViewMenu::showChoices(const Preferences& preferences)
{
    check(m_skin, preferences.skin());
    check(m_language, preferences.language());
    check(m_scale, preferences.scale());
    m_motion->setChecked(preferences.isMotionReduced());
}

void ViewMenu::check(const QMenu* menu, const QVariant& value)
{
    const QList<QAction*> actions = menu->actions();
    for (QAction* action : actions)
        action->setChecked(action->data() == value);
}

QAction* ViewMenu::addChoice(QMenu* menu, QActionGroup* group, const QString& text,
                             const QVariant& value, const QVariant& current)
{
    QAction* const action = menu->addAction(text);
    action->setObjectName(menu->menuAction()->objectName() + QLatin1Char('.') + value.toString());
    action->setCheckable(true);
    action->setChecked(value == current);
    action->setData(value);
    group->addAction(action);
    return action;
}

void ViewMenu::retranslate()
{
    setTitle(tr("&View"));
    m_skin->setTitle(tr("&Skin"));
    m_language->setTitle(tr("&Language"));
    m_scale->setTitle(tr("S&cale (at the next start)"));
    m_motion->setText(tr("&Reduce motion"));
    m_motion->setStatusTip(tr("Pointing at a cell does not play its preview; Space does"));
    m_screenScale->setText(tr("As the screen"));
    const QList<QAction*> scales = m_scale->actions();
    for (QAction* action : scales) {
        if (action != m_screenScale)
            action->setText(tr("%1 %").arg(QLocale().toString(action->data().toInt())));
    }
}

void ViewMenu::changeEvent(QEvent* event)
{
    QMenu::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}
