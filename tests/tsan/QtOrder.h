#pragma once

class QEvent;
class QObject;

/// What ThreadSanitizer must be told about Qt, whose libraries are not built for it: which calls
/// order the work of two threads. QtOrder*.cpp tell it of locks, signals and threads by standing in
/// front of Qt's functions; the delivery of events it learns from WatchedApplication.
namespace QtOrder {

/// The calling thread is about to deliver `event`: what led to it has happened before.
void delivering(const QObject* receiver, const QEvent* event);

} // namespace QtOrder
