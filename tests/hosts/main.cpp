// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

// host_pictures HOST FOLDER EXAMPLE...
//
// Shows each example of docs/snippets in the host and stores its picture as FOLDER/EXAMPLE.png. The
// places of the items that not every host shows go into the picture's text "Drawn", in pixels. What
// is logged goes to the standard error output.

#include "tests/hosts/Host.h"
#include "tests/support/Items.h"

#include <QApplication>
#include <QFont>
#include <QPainter>
#include <QQuickWindow>
#include <QStyleHints>
#include <QTest>
#include <QtMath>

#include <algorithm>

namespace {

/// Shows all that an example has and keeps closed: overlays follow their items with each frame.
void open(const Host &host)
{
    QQuickItem *const content = host.root()->window()->contentItem();
    const auto popups = support::itemsOf(content, "om::controls::Popup");
    for (QQuickItem *popup : popups) {
        popup->setProperty("open", true);
    }
    const auto dialogs = support::itemsOf(content, "om::controls::DialogItem");
    for (QQuickItem *dialog : dialogs) {
        QMetaObject::invokeMethod(dialog, "show");
    }
}

/// Not every host gives a window the focus, without which no text cursor is shown.
void hideTextCursors(const Host &host)
{
    const auto fields = support::itemsOf(host.root()->window()->contentItem(), "QQuickTextInput");
    for (QQuickItem *field : fields) {
        field->setProperty("cursorVisible", false);
    }
}

/// The picture once it does not change any more, or after a while of changes.
QImage settledPicture(Host &host)
{
    QImage last = host.picture();
    int alike = 0;
    for (int turn = 0; turn < 60 && alike < 2; ++turn) {
        QTest::qWait(30);
        const QImage next = host.picture();
        alike = next == last ? alike + 1 : 0;
        last = next;
    }
    return last;
}

QImage onWhite(const QImage &picture)
{
    QImage result(picture.size(), QImage::Format_RGB32);
    result.fill(Qt::white);
    QPainter painter(&result);
    painter.drawImage(result.rect(), picture, picture.rect());
    return result;
}

/// The places of all items of the types that not every host shows, one "x y width height" each.
QString drawnPlaces(const Host &host, qreal scale)
{
    QStringList places;
    QQuickItem *const content = host.root()->window()->contentItem();
    for (const char *type : {"CheckerBox", "DashedBorder", "QRCode", "FrameItem", "HueBox",
                             "SaturationValueBox", "DialogItem"}) {
        const auto items = support::itemsOf(content, QByteArray("om::controls::").append(type));
        for (const QQuickItem *item : items) {
            const QRectF place = item->mapRectToScene(item->boundingRect());
            places.append(QStringLiteral("%1 %2 %3 %4 %5")
                              .arg(QLatin1String(type))
                              .arg(qFloor(place.x() * scale))
                              .arg(qFloor(place.y() * scale))
                              .arg(qCeil(place.width() * scale))
                              .arg(qCeil(place.height() * scale)));
        }
    }
    return places.join(QLatin1Char('\n'));
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    // The same text on all platforms, whatever resolution they claim.
    QFont font(QStringLiteral("Lato"));
    font.setPixelSize(13);
    QApplication::setFont(font);
    QGuiApplication::styleHints()->setCursorFlashTime(0);
    const QStringList arguments = QCoreApplication::arguments();
    for (const QString &example : arguments.mid(3)) {
        const std::unique_ptr<Host> host = makeHost(arguments.value(1));
        if (!host) {
            qFatal("There is no host of this name");
        }
        host->show(qEnvironmentVariable("OMBREL_SOURCE_DIR")
                   + QStringLiteral("/docs/snippets/%1.qml").arg(example));
        open(*host);
        hideTextCursors(*host);
        // What an effect does not cover is white in the others' windows.
        QImage picture = onWhite(settledPicture(*host));
        picture.setText(QStringLiteral("Drawn"),
                        drawnPlaces(*host, picture.width() / host->root()->width()));
        const QString path = arguments.value(2) + QStringLiteral("/%1.png").arg(example);
        if (!picture.save(path)) {
            qFatal("%s cannot be written", qPrintable(path));
        }
    }
    return 0;
}
