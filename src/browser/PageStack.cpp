// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/PageStack.h"

namespace {

/// Of a page that has not been laid out, as of any widget that Qt creates without a parent: enough
/// for its contents.
constexpr QSize initialSize(640, 480);

} // namespace

void PageStack::addPages()
{
    const QList<QWidget*> pages = findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    for (QWidget* const page : pages) {
        page->resize(initialSize);
        addWidget(page);
    }
}
