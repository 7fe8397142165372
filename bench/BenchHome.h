#pragma once

#include <QTemporaryDir>

/// The temporary folder of one benchmark, to which hostSettings() points; log lines go nowhere.
class BenchHome
{
public:
    BenchHome();

    QString path() const { return m_dir.path(); }

private:
    QTemporaryDir m_dir;
};
