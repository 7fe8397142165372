// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QBasicTimer>
#include <QObject>

class QListView;

/// Tells the preview run which items a list view shows, so that their pictures come first
/// (PreviewExchange), shortly after what it shows has changed.
///
/// The rows have UIItemRole_GUID. The view must outlive this object. Internal to the library; GUI
/// thread only.
class ShownItems : public QObject
{
    Q_OBJECT

public:
    explicit ShownItems(QListView& view);
    ~ShownItems() override;

    /// Call it after rows, layout, scroll position or visibility have changed.
    void update();

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    void tell();

    QListView& m_view;
    QBasicTimer m_timer; // runs while a change has not been told
};
