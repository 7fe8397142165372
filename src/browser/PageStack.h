// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QStackedWidget>

/// A stacked widget whose pages are its children before they are filled.
///
/// The code that uic makes for a QStackedWidget creates each page without a parent and adds it when
/// it is filled. Whatever is below it then gets its style before it has all its ancestors, and
/// again when it has them, with stacks in each other once per level. Forms therefore declare this
/// class as an ordinary widget, whose children uic creates with their parent, and call addPages()
/// when they are set up.
///
/// Internal to the library; GUI thread only.
class PageStack : public QStackedWidget
{
public:
    using QStackedWidget::QStackedWidget;

    /// Makes pages of the children, in the order in which they were created. The first is shown.
    void addPages();
};
