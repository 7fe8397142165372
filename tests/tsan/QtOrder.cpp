// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// The definitions here replace Qt's own in the whole program, including our shared libraries: the
// program exports them, and the dynamic linker finds them first. Each calls Qt's function and
// announces the resulting order: whatever a thread did before publishing an address is visible to
// every thread that observes it later. Calls within Qt's libraries are not intercepted.

#include "tsan/QtOrder.h"

#include "tsan/Announce.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QEvent>
#include <QMutex>
#include <QObject>
#include <QSemaphore>
#include <QString>
#include <QThread>

using namespace Announce;

namespace {

/// Represents all queued signals, since the recipient of a call cannot be seen from outside.
/// Threads that deliver no events never observe it, so it hides no race between them.
char queuedCalls;

/// The event was created by another thread, whose work is not visible here yet.
QEvent::Type typeOf(const QEvent& event)
{
    const Unwatched unwatched;
    return event.type();
}

/// Reports a read and a write that uninstrumented code will do; both are one pointer wide.
void accessForAssignment(void* to, const void* from)
{
    __tsan_read8(const_cast<void*>(from));
    __tsan_write8(to);
}

void publishCall(const QObject* sender)
{
    observe(sender); // for connections made meanwhile
    publish(&queuedCalls);
}

} // namespace

void QtOrder::delivering(const QObject* receiver, const QEvent* event)
{
    observe(QThread::currentThread()); // another thread may have called quit()
    switch (typeOf(*event)) {
    case QEvent::MetaCall:
        observe(&queuedCalls);
        break;
    case QEvent::DeferredDelete:
        observe(receiver);
        break;
    default:
        observe(event);
        break;
    }
}

// Assignments of texts happen inside Qt, where accesses are not seen.
// NOLINTBEGIN(bugprone-unhandled-self-assignment): Qt's own handle it

QString& QString::operator=(const QString& other) noexcept
{
    static auto* const next = original<QString&(QString*, const QString*)>("_ZN7QStringaSERKS_");
    accessForAssignment(this, &other);
    return next(this, &other);
}

QByteArray& QByteArray::operator=(const QByteArray& other) noexcept
{
    static auto* const next =
        original<QByteArray&(QByteArray*, const QByteArray*)>("_ZN10QByteArrayaSERKS_");
    accessForAssignment(this, &other);
    return next(this, &other);
}

// NOLINTEND(bugprone-unhandled-self-assignment)

void QMutex::lock() noexcept
{
    static auto* const next = original<void(QMutex*)>("_ZN6QMutex4lockEv");
    next(this);
    observe(this);
}

bool QMutex::tryLock(int timeout) noexcept
{
    static auto* const next = original<bool(QMutex*, int)>("_ZN6QMutex7tryLockEi");
    const bool locked = next(this, timeout);
    if (locked)
        observe(this);
    return locked;
}

void QMutex::unlock() noexcept
{
    static auto* const next = original<void(QMutex*)>("_ZN6QMutex6unlockEv");
    publish(this);
    next(this);
}

void QSemaphore::acquire(int n)
{
    static auto* const next = original<void(QSemaphore*, int)>("_ZN10QSemaphore7acquireEi");
    next(this, n);
    observe(this);
}

bool QSemaphore::tryAcquire(int n)
{
    static auto* const next = original<bool(QSemaphore*, int)>("_ZN10QSemaphore10tryAcquireEi");
    const bool acquired = next(this, n);
    if (acquired)
        observe(this);
    return acquired;
}

bool QSemaphore::tryAcquire(int n, int timeout)
{
    static auto* const next =
        original<bool(QSemaphore*, int, int)>("_ZN10QSemaphore10tryAcquireEii");
    const bool acquired = next(this, n, timeout);
    if (acquired)
        observe(this);
    return acquired;
}

void QSemaphore::release(int n)
{
    static auto* const next = original<void(QSemaphore*, int)>("_ZN10QSemaphore7releaseEi");
    publish(this);
    next(this, n);
}

QMetaObject::Connection QObject::connectImpl(const QObject* sender, void** signal,
                                             const QObject* receiver, void** slotPtr,
                                             QtPrivate::QSlotObjectBase* slot,
                                             Qt::ConnectionType type, const int* types,
                                             const QMetaObject* senderMetaObject)
{
    static auto* const next = original<decltype(connectImpl)>(
        "_ZN7QObject11connectImplEPKS_PPvS1_S3_PN9QtPrivate15QSlotObjectBaseEN2Qt14ConnectionTypeE"
        "PKiPK11QMetaObject");
    publish(sender);
    return next(sender, signal, receiver, slotPtr, slot, type, types, senderMetaObject);
}

void QMetaObject::activate(QObject* sender, int signalIndex, void** argv)
{
    static auto* const next =
        original<void(QObject*, int, void**)>("_ZN11QMetaObject8activateEP7QObjectiPPv");
    publishCall(sender);
    next(sender, signalIndex, argv);
}

void QMetaObject::activate(QObject* sender, const QMetaObject* type, int localSignalIndex,
                           void** argv)
{
    static auto* const next = original<void(QObject*, const QMetaObject*, int, void**)>(
        "_ZN11QMetaObject8activateEP7QObjectPKS_iPPv");
    publishCall(sender);
    next(sender, type, localSignalIndex, argv);
}

void QMetaObject::activate(QObject* sender, int signalOffset, int localSignalIndex, void** argv)
{
    static auto* const next =
        original<void(QObject*, int, int, void**)>("_ZN11QMetaObject8activateEP7QObjectiiPPv");
    publishCall(sender);
    next(sender, signalOffset, localSignalIndex, argv);
}

bool QMetaObject::invokeMethodImpl(QObject* object, QtPrivate::QSlotObjectBase* slot,
                                   Qt::ConnectionType type, void* returned)
{
    static auto* const next =
        original<bool(QObject*, QtPrivate::QSlotObjectBase*, Qt::ConnectionType, void*)>(
            "_ZN11QMetaObject16invokeMethodImplEP7QObjectPN9QtPrivate15QSlotObjectBaseEN2Qt14"
            "ConnectionTypeEPv");
    publishCall(object);
    return next(object, slot, type, returned);
}

void QCoreApplication::postEvent(QObject* receiver, QEvent* event, int priority)
{
    static auto* const next = original<void(QObject*, QEvent*, int)>(
        "_ZN16QCoreApplication9postEventEP7QObjectP6QEventi");
    publish(event);
    next(receiver, event, priority);
}

void QObject::deleteLater()
{
    static auto* const next = original<void(QObject*)>("_ZN7QObject11deleteLaterEv");
    publish(this);
    next(this);
}
