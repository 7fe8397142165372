#pragma once

#include <QString>

/// The progress of one download: a bar on a terminal, otherwise a line whenever another file is
/// being fetched. Prints to standard output.
class ProgressDisplay
{
public:
    enum class Style { Automatic, None };

    ProgressDisplay(const QString& title, Style style);

    /// `percent` is 0 to 100; `file` is the local path of the file being fetched, or empty.
    void update(double percent, const QString& file);
    /// Ends the bar's line.
    void finish();

private:
    QString fileName() const;
    void drawBar(int percent) const;

    QString m_title;
    bool m_silent;
    bool m_bar;
    int m_percent = -1;
    QString m_file;
};
