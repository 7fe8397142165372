#pragma once

#include <QApplication>
#include <QByteArray>
#include <QCoreApplication>
#include <QFontInfo>

#include <memory>
#include <type_traits>

/// What a fuzzer does with its inputs.
///
/// One object serves a whole process. Define it in fuzz_NAME.cpp and end that file with
/// MV_FUZZ_TARGET; libFuzzer, or the main function of the test suite, feeds the inputs. The process
/// runs in a TestHome of its own.
class FuzzTarget
{
public:
    FuzzTarget() = default;
    virtual ~FuzzTarget() = default;
    Q_DISABLE_COPY_MOVE(FuzzTarget)

    /// Feeds one input to the code, and calls require() with every property that must hold.
    /// Nothing that an input leaves behind may change what the next one does.
    virtual void run(const QByteArray& input) = 0;

    /// Whether Qt may warn of an input. Otherwise a warning ends the process as a property does
    /// that does not hold.
    virtual bool mayWarn() const { return false; }
};

/// Creates the application object and the target; MV_FUZZ_TARGET defines it.
std::unique_ptr<FuzzTarget> makeFuzzTarget();

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
        QFontInfo(QApplication::font()).family(); // writes the cache of fonts, once
}

/// Makes the class the target of this program, with an object of the application class.
#define MV_FUZZ_TARGET(Target, Application)                                                        \
    std::unique_ptr<FuzzTarget> makeFuzzTarget()                                                   \
    {                                                                                              \
        makeFuzzApplication<Application>();                                                        \
        return std::make_unique<Target>();                                                         \
    }
