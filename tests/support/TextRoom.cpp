#include "support/TextRoom.h"

#include <QLabel>

bool holdsItsText(const QLabel& label)
{
    const QRect room = label.contentsRect();
    const int wrap = label.wordWrap() ? Qt::TextWordWrap : 0;
    const QRect text = label.fontMetrics().boundingRect(
        room, wrap | static_cast<int>(label.alignment()), label.text());
    return text.width() <= room.width() && text.height() <= room.height();
}
