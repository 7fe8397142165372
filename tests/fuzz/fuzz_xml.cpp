// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// Opens one XML file as every reader of catalogues does.

#include "CatalogueWorld.h"
#include "FuzzTarget.h"
#include "Require.h"
#include "WriteGuard.h"

#include <QDomDocument>

namespace {

constexpr int maxDepth = 64;
constexpr int maxAttributes = 1000;

class XmlTarget : public FuzzTarget
{
public:
    void run(const QByteArray& input) override;

private:
    static void checkTree(const QDomElement& root);
    static QDomElement nextElement(const QDomElement& root, QDomElement element, int& depth);
};

void XmlTarget::run(const QByteArray& input)
{
    const QString file = TestHome::path() + QStringLiteral("/file.xml");
    CatalogueFiles::write(file, input);
    const WriteGuard guard({});
    QDomDocument first;
    QDomDocument second;
    const bool isAccepted = MVThemeMgr::init()->checkXml(file, first);
    require(MVThemeMgr::init()->checkXml(file, second) == isAccepted,
            "a file is accepted every time or never");
    if (!isAccepted)
        return;
    require(first.toString() == second.toString(), "a file reads the same every time");
    require(first.doctype().entities().isEmpty(), "no entities are declared");
    checkTree(first.documentElement());
}

/// Walks iteratively: a deeply nested tree must not overflow this program's stack.
void XmlTarget::checkTree(const QDomElement& root)
{
    require(!root.isNull(), "a document has a root");
    int depth = 1;
    for (QDomElement element = root; !element.isNull();
         element = nextElement(root, element, depth)) {
        require(depth <= maxDepth, "elements are nested at most 64 deep");
        require(element.attributes().count() <= maxAttributes,
                "an element has at most 1,000 attributes");
    }
}

/// Returns the next element in document order; null after the last one.
QDomElement XmlTarget::nextElement(const QDomElement& root, QDomElement element, int& depth)
{
    const QDomElement child = element.firstChildElement();
    if (!child.isNull()) {
        ++depth;
        return child;
    }
    while (element != root) {
        const QDomElement sibling = element.nextSiblingElement();
        if (!sibling.isNull())
            return sibling;
        element = element.parentNode().toElement();
        --depth;
    }
    return {};
}

} // namespace

MV_FUZZ_TARGET(XmlTarget, QCoreApplication)
