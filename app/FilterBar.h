// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "browser/EUIItemType.h"
#include "FilterPart.h"

#include <QVector>
#include <QWidget>

class QComboBox;
class QLineEdit;
class QToolButton;

/// The controls above the lists that search, limit and sort them.
class FilterBar : public QWidget
{
    Q_OBJECT

public:
    explicit FilterBar(QWidget* parent);

    /// Returns the filter for the shown list. Only themes have types.
    SListFilter filter() const;
    /// Returns the text of the search field.
    QString text() const;
    int themeType() const;
    void setThemeType(int type);
    EListOrder order() const;
    void setOrder(EListOrder order);
    /// Shows the controls that apply to the items of a list.
    void setListType(EUIItemType type);
    /// Removes one condition.
    void remove(FilterPart part);
    /// Removes all conditions, in one change.
    void clear();
    /// Moves the keyboard focus to the search field.
    void startSearch();

signals:
    void changed();
    /// The user has pressed a key that leads from the search field to the list.
    void listWanted();

protected:
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void createParts();
    void retranslate();
    void nameClearButton();
    void makeRoomForSearch();

    QLineEdit* m_search;
    QComboBox* m_types;
    QToolButton* m_favourites;
    QToolButton* m_onDisk;
    QToolButton* m_outdated;
    QComboBox* m_order;
    EUIItemType m_listType = UIItem_Themes;
};
