// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

class QEvent;
class QObject;

/// Tells ThreadSanitizer which calls order the work of two threads in Qt, whose libraries are not
/// instrumented. QtOrder*.cpp interpose Qt's functions for locks, signals and threads;
/// WatchedApplication reports the delivery of events.
namespace QtOrder {

/// Reports that the calling thread is about to deliver `event`, after everything that led to it.
void delivering(const QObject* receiver, const QEvent* event);

} // namespace QtOrder
