#pragma once

#include <QByteArray>
#include <QJsonArray>
#include <QMetaType>
#include <QString>

#include <functional>

/// A copy of a clean tree of SmallSource's that a test breaks, and what mvpublish says of it.
class BrokenTree
{
public:
    /// Builds the clean trees: a server's for the editions standard, 1 and 3, and an installation
    /// that shows the theme and has the motion built in. An empty text, or what went wrong.
    static QString makeClean();
    static QString cleanServer();
    /// The folder "Resource".
    static QString cleanInstallation();

    explicit BrokenTree(const QString& clean);

    QString folder() const { return m_folder; }
    QString file(const QString& name) const { return m_folder + QLatin1Char('/') + name; }
    QByteArray read(const QString& name) const;
    void write(const QString& name, const QByteArray& content) const;
    void remove(const QString& name) const;
    /// Replaces a text in a file; it must be there.
    void replace(const QString& name, const QString& from, const QString& to) const;
    /// The same in every display catalogue.
    void replaceShown(const QString& from, const QString& to) const;
    /// Takes an item's entry out of a display catalogue.
    void removeEntry(const QString& name, const QString& guid) const;
    /// Lets the version files announce what is there.
    void announce() const;

    /// What lint finds.
    static QJsonArray findings(const QString& tree);

private:
    void announce(const QString& version, const char* element, const QString& catalogue) const;

    QString m_folder;
};

using Break = std::function<void(const BrokenTree&)>;
Q_DECLARE_METATYPE(Break)

/// Names and changes for rows of broken trees.
namespace Broken {

extern const QString config;
extern const QString display;
extern const QString displayAff;
extern const QString version;
extern const QString none; ///< GUID of the "none" entry

QString text(const char* utf8);
QString guid(const char* item);
/// The GUID as it stands in names of the config catalogue.
QString encoded(const char* item);
/// An "Item" of a catalogue.
QString entry(const QString& itemGuid, const char* more);

Break replace(const QString& file, const QString& from, const QString& to);
Break remove(const QString& file);
Break write(const QString& file, const QByteArray& content);
Break cut(const QString& file, int bytes);
/// The file lies elsewhere, with a link in its place.
Break linkOut(const QString& file);

/// The columns of rows.
void columns();
/// One finding, an error: its code, where it stands, and the GUID of the item that it concerns.
void row(const char* name, const Break& change, const char* code, const QString& file,
         const QString& item = QString());
/// Breaks a clean tree as the current row says and compares what lint finds. An empty text, or
/// what is wrong.
QString check(const QString& clean);

} // namespace Broken
