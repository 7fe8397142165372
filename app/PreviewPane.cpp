// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "PreviewPane.h"

#include "host/widgets/PictureDecoder.h"
#include "host/widgets/PictureLoader.h"
#include "host/widgets/PictureRequest.h"

#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QPainter>
#include <QStyle>

namespace {

constexpr int aspectWidth = 16;
constexpr int aspectHeight = 9;
constexpr int widthHint = 320;
constexpr int leastHeight = 36;

/// Announces the pane as an animation that can be played and stopped.
class PreviewPaneAccess : public QAccessibleWidget
{
public:
    explicit PreviewPaneAccess(PreviewPane* pane)
        : QAccessibleWidget(pane, QAccessible::Animation)
        , m_pane(pane)
    {
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.animated = m_pane->isPlaying();
        return state;
    }

    QStringList actionNames() const override { return {pressAction()}; }

    void doAction(const QString& name) override
    {
        if (name == pressAction())
            m_pane->setPlaying(!m_pane->isPlaying());
    }

private:
    PreviewPane* m_pane;
};

QAccessibleInterface* createPaneAccess(const QString& className, QObject* object)
{
    auto* const pane =
        className == QLatin1String("PreviewPane") ? qobject_cast<PreviewPane*>(object) : nullptr;
    return pane ? new PreviewPaneAccess(pane) : nullptr; // Qt's cache owns it
}

} // namespace

PreviewPane::PreviewPane(QWidget* parent)
    : QWidget(parent)
{
    static const bool isInstalled = [] {
        QAccessible::installFactory(&createPaneAccess);
        return true;
    }();
    Q_UNUSED(isInstalled)
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    connect(&m_movie, &QMovie::updated, this, [this] {
        m_hasFrame = true;
        update();
    });
}

PreviewPane::~PreviewPane() = default;

void PreviewPane::show(const QString& thumbnail, const QString& animation, bool play)
{
    m_movie.stop();
    m_hasFrame = false;
    m_movie.setFileName(animation);
    m_animated = PictureDecoder::prepare(m_movie);
    setFocusPolicy(m_animated ? Qt::TabFocus : Qt::NoFocus); // keys play it
    m_stillFile = thumbnail.isEmpty() && m_animated ? animation : thumbnail;
    m_stillPixels = QSize();
    m_still = QPixmap();
    requestStill();
    setPlaying(play);
    update();
}

/// Requests the still at the size at which it is shown.
void PreviewPane::requestStill()
{
    const qreal scale = devicePixelRatioF();
    const QSize own = m_stillFile.isEmpty() ? QSize() : PictureDecoder::announcedSize(m_stillFile);
    QSize pixels = own;
    const QSize room = (QSizeF(size()) * scale).toSize();
    if (pixels.width() > room.width() || pixels.height() > room.height())
        pixels.scale(room, Qt::KeepAspectRatio);
    if (pixels.isEmpty()) {
        m_request.reset();
        return;
    }
    if (pixels == m_stillPixels)
        return;
    m_stillPixels = pixels;
    const QString key =
        QStringLiteral("%1|%2x%3")
            .arg(m_stillFile, QString::number(pixels.width()), QString::number(pixels.height()));
    m_request = PictureLoader::instance()->request(key, m_stillFile, pixels,
                                                   PictureLoader::Sharing::NotBegun);
    connect(m_request.get(), &PictureRequest::decoded, this, [this](const QPixmap& picture) {
        m_still = picture;
        update();
    });
}

void PreviewPane::setPlaying(bool playing)
{
    if (!m_animated || playing == isPlaying())
        return;
    if (playing)
        m_movie.start();
    else
        m_movie.stop();
    update();
}

QSize PreviewPane::sizeHint() const
{
    return {widthHint, widthHint * aspectHeight / aspectWidth};
}

QSize PreviewPane::minimumSizeHint() const
{
    return {leastHeight * aspectWidth / aspectHeight, leastHeight};
}

int PreviewPane::heightForWidth(int width) const
{
    constexpr int facts = 320; // the height that the facts and the rest of a low window need
    const int room = qMax(leastHeight, window()->height() - facts);
    return qBound(leastHeight, width * aspectHeight / aspectWidth, room);
}

void PreviewPane::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    requestStill();
}

/// A picture keeps its size, unless it is larger than the pane.
QRect PreviewPane::placeOf(const QPixmap& picture) const
{
    QSize shown = picture.size();
    if (shown.width() > width() || shown.height() > height())
        shown.scale(size(), Qt::KeepAspectRatio);
    return QStyle::alignedRect(layoutDirection(), Qt::AlignCenter, shown, rect());
}

void PreviewPane::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.fillRect(rect(), palette().color(QPalette::Button));
    const bool moving = m_hasFrame && (isPlaying() || m_still.isNull());
    const QPixmap picture = moving ? m_movie.currentPixmap() : m_still;
    if (!picture.isNull())
        painter.drawPixmap(placeOf(picture), picture);
    if (!hasFocus())
        return;
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.drawRect(rect().adjusted(1, 1, -1, -1));
}

void PreviewPane::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Space)
        setPlaying(!isPlaying());
    else
        QWidget::keyPressEvent(event);
}

void PreviewPane::mouseReleaseEvent(QMouseEvent* /*event*/)
{
    setPlaying(!isPlaying());
}
