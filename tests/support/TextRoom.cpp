// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "support/TextRoom.h"

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QStyle>
#include <QStyleOptionComboBox>
#include <QStyleOptionFrame>
#include <QTabBar>

namespace {

template <class Part, class Check>
void forEachSeen(const QWidget& window, Check check)
{
    const QList<Part*> parts = window.findChildren<Part*>();
    for (Part* part : parts) {
        if (part->isVisible())
            check(*part);
    }
}

QStringList cutOffChoices(const QComboBox& box)
{
    QStyleOptionComboBox option;
    option.initFrom(&box);
    option.editable = false;
    const int room =
        box.style()
            ->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &box)
            .width()
        - 2; // free space that the style leaves beside the text
    QStringList texts;
    for (int at = 0; at < box.count(); ++at) {
        if (box.fontMetrics().boundingRect(box.itemText(at)).right() >= room)
            texts.append(box.itemText(at));
    }
    return texts;
}

bool holdsItsPlaceholder(const QLineEdit& field)
{
    QStyleOptionFrame option;
    option.initFrom(&field);
    option.lineWidth = field.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, &field);
    constexpr int margins = 2 * 2; // internal to QLineEdit
    const QRect room = field.style()->subElementRect(QStyle::SE_LineEditContents, &option, &field);
    return field.fontMetrics().horizontalAdvance(field.placeholderText()) <= room.width() - margins;
}

QStringList cutOffTabs(const QTabBar& tabs)
{
    QStringList texts;
    for (int at = 0; at < tabs.count(); ++at) {
        if (!tabs.rect().contains(tabs.tabRect(at)) || tabs.sizeHint().width() > tabs.width())
            texts.append(tabs.tabText(at));
    }
    return texts;
}

QStringList cutOffTitles(const QMenuBar& bar)
{
    QStringList texts;
    const QList<QAction*> menus = bar.actions();
    for (QAction* menu : menus) {
        const QRect place = bar.actionGeometry(menu);
        if (place.isEmpty() || !bar.rect().contains(place))
            texts.append(menu->text());
    }
    return texts;
}

} // namespace

bool holdsItsText(const QLabel& label)
{
    const QRect room = label.contentsRect();
    const int wrap = label.wordWrap() ? Qt::TextWordWrap : 0;
    const QRect text = label.fontMetrics().boundingRect(
        room, wrap | static_cast<int>(label.alignment()), label.text());
    return text.width() <= room.width() && text.height() <= room.height();
}

QStringList cutOffTexts(const QWidget& window, const QString& shortening)
{
    QStringList texts;
    forEachSeen<QLabel>(window, [&](const QLabel& label) {
        if (label.objectName() != shortening && !holdsItsText(label))
            texts.append(label.text());
    });
    forEachSeen<QAbstractButton>(window, [&](const QAbstractButton& button) {
        const QSize wanted = button.sizeHint();
        if (!button.text().isEmpty()
            && (wanted.width() > button.width() || wanted.height() > button.height()))
            texts.append(button.text());
    });
    forEachSeen<QComboBox>(window, [&](const QComboBox& box) { texts += cutOffChoices(box); });
    forEachSeen<QTabBar>(window, [&](const QTabBar& tabs) { texts += cutOffTabs(tabs); });
    forEachSeen<QMenuBar>(window, [&](const QMenuBar& bar) { texts += cutOffTitles(bar); });
    forEachSeen<QLineEdit>(window, [&](const QLineEdit& field) {
        if (!holdsItsPlaceholder(field))
            texts.append(field.placeholderText());
    });
    return texts;
}
