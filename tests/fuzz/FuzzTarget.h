// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#ifndef MV_LIBFUZZER
#include "Corpus.h"
#include "support/RegisteredTest.h"
#endif

#include <QApplication>
#include <QByteArray>
#include <QCoreApplication>
#include <QFontInfo>

#include <memory>
#include <type_traits>

/// The code that a fuzzer exercises with its inputs.
///
/// One object serves a whole process. Define it in fuzz_NAME.cpp and end that file with
/// MV_FUZZ_TARGET; libFuzzer, or a test, feeds the inputs. The process runs in a TestHome of its
/// own.
class FuzzTarget
{
public:
    FuzzTarget() = default;
    virtual ~FuzzTarget() = default;
    Q_DISABLE_COPY_MOVE(FuzzTarget)

    /// Feeds one input to the code, and calls require() with every property that must hold. No
    /// state left by one input may affect the next.
    virtual void run(const QByteArray& input) = 0;

    /// Returns whether Qt may warn about an input. Otherwise a warning ends the process like a
    /// violated property.
    virtual bool mayWarn() const { return false; }
};

/// Creates the application object. It is never destroyed: libFuzzer ends the process without
/// returning from main().
template <class Application>
void makeFuzzApplication()
{
    static int count = 1;
    static char name[] = "fuzzer";
    static char* arguments[] = {name, nullptr};
    static auto* const application = new Application(count, arguments);
    Q_UNUSED(application)
    if constexpr (std::is_same_v<Application, QApplication>)
        QFontInfo(QApplication::font()).family(); // creates the font cache, once
}

/// Creates the application object and the target. Call it once.
template <class Target, class Application>
std::unique_ptr<FuzzTarget> makeFuzzTarget()
{
    makeFuzzApplication<Application>();
    return std::make_unique<Target>();
}

#ifndef MV_LIBFUZZER
/// Feeds the corpus that the arguments name. Returns the exit status.
template <class Target, class Application>
int testCorpus(int argc, char** argv)
{
    return feedCorpus(&makeFuzzTarget<Target, Application>, argc, argv);
}
#endif

/// Makes the class the target of its source file, with an application object of the given class:
/// with libFuzzer the only one of the program, otherwise a test that feeds a corpus.
#ifdef MV_LIBFUZZER
#define MV_FUZZ_TARGET(Target, Application)                                                        \
    std::unique_ptr<FuzzTarget> makeProgramsTarget()                                               \
    {                                                                                              \
        return makeFuzzTarget<Target, Application>();                                              \
    }
#else
#define MV_FUZZ_TARGET(Target, Application)                                                        \
    static const RegisteredTest registered##Target(__FILE__, testCorpus<Target, Application>);
#endif
