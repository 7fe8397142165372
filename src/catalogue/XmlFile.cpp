#include "catalogue/XmlFile.h"

#include "catalogue/XmlGuard.h"

#include <QDomDocument>
#include <QFile>

bool XmlFile::parse(const QString& path, QDomDocument& doc)
{
    QFile file(path);
    if (path.isEmpty() || !file.open(QIODevice::ReadOnly)
        || file.size() > XmlGuard::longestDocument)
        return false;
    const QByteArray bytes = file.readAll();
    // With the length: without it, decoding stops at a NUL and hides what follows.
    const QString text = QString::fromUtf8(bytes.constData(), bytes.size());
    return XmlGuard::accepts(text) && doc.setContent(text);
}
