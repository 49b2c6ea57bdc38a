// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "qr/QrEncoder.h"
#include "tests/support/Leftovers.h"
#include "tests/support/Pixels.h"
#include "tests/support/QmlView.h"
#include "tests/support/Screen.h"
#include "tests/support/SignalRecorder.h"

#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include <cmath>

namespace {

/// The modules that a url has to show.
class Modules
{
public:
    explicit Modules(const QByteArray &url)
        : m_size(om::controls::qrEncode(0, 0, url.constData(), url.size(), m_bits))
    {
    }

    int size() const { return m_size; }
    bool dark(int x, int y) const
    {
        const int k = y * m_size + x;
        return m_bits[k / 8] & 0x80 >> k % 8;
    }

    /// Where the centre of a module lies, as a part of the item's width: the picture has a border
    /// of one module, of which 1 / size of the whole is cut off on each side.
    qreal center(int module, bool smoothed = false) const
    {
        const qreal cut = (smoothed ? 0.8 : 1.0) / m_size;
        return ((module + 1.5) / (m_size + 2) - cut) / (1 - 2 * cut);
    }

private:
    unsigned char m_bits[om::controls::QrResultBytes];
    int m_size;
};

/// An empty string when the centre of every module of \a item shows its colour in \a image.
QString moduleError(const QImage &image, QQuickItem *item, const Modules &modules,
                    const QColor &dark, const QColor &light)
{
    const bool smoothed = item->antialiasing();
    for (int y = 0; y < modules.size(); ++y) {
        for (int x = 0; x < modules.size(); ++x) {
            const QPointF inside(modules.center(x, smoothed) * item->width(),
                                 modules.center(y, smoothed) * item->height());
            const QPointF point = item->mapToScene(inside);
            const QPoint pixel(int(std::floor(point.x())), int(std::floor(point.y())));
            const QString error =
                support::pixelError(image, pixel, modules.dark(x, y) ? dark : light, 3);
            if (!error.isEmpty())
                return QStringLiteral("module %1, %2: %3").arg(x).arg(y).arg(error);
        }
    }
    return QString();
}

const QByteArray blackUrl("about:black");

} // namespace

class TestQRCode : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void showsItsModules_data();
    void showsItsModules();
    void followsItsUrl();
    void followsItsColors();
    void followsItsWidth();
    void twoTonesWithoutSmoothing();
    void softEdgesWithSmoothing();
    void switchesSmoothing();
    void transparentLightModules();
    void tooLongShowsLight();
    void fitsAgainAfterTooLong();
    void signalOrder();
    void sizedByItsOwnHandler_data();
    void sizedByItsOwnHandler();
    void sceneGraphReleasedAndRemade();
    void hiddenAndShown();
    void changedWhileHidden();
    void throughALayer();
    void betweenWindows();
    void manyUrls();
    void destroyedWhileShown();
    void readBack_data();
    void readBack();
};

void TestQRCode::cleanup()
{
    QCOMPARE(support::leftovers(), QString());
}

void TestQRCode::showsItsModules_data()
{
    QTest::addColumn<QByteArray>("code");
    for (const char *smoothing : {"false", "true"}) {
        for (const char *scale : {"0.5", "1", "3"}) {
            for (const char *rotation : {"0", "90", "30"}) {
                QTest::addRow("scale %s, rotation %s, smoothing %s", scale, rotation, smoothing)
                    << QByteArray("antialiasing: ") + smoothing + "; scale: " + scale
                        + "; rotation: " + rotation;
            }
        }
    }
}

void TestQRCode::showsItsModules()
{
    QFETCH(QByteArray, code);
    support::QmlView view;
    view.load("Rectangle { width: 760; height: 760; color: '#808080'\n"
              "QRCode { objectName: 'code'; anchors.centerIn: parent; "
              + code + " } }");
    view.show();
    QQuickItem *item = view.item("code");
    QCOMPARE(item->width(), 168.0);
    QCOMPARE(
        moduleError(support::grab(view.window()), item, Modules(blackUrl), Qt::black, Qt::white),
        QString());
}

void TestQRCode::followsItsUrl()
{
    support::QmlView view;
    view.load("Item { width: 400; height: 400; QRCode { objectName: 'code' } }");
    view.show();
    QQuickItem *item = view.item("code");
    for (const char *url : {"https://example.org/", "mailto:somebody@example.org",
                            "https://example.org/%C3%A4?q=a%20b#there",
                            "https://example.org/a/longer/path/than/the/others/have/had/so/far"}) {
        item->setProperty("url", QUrl::fromEncoded(url));
        const Modules modules{QByteArray(url)};
        QCOMPARE(item->implicitWidth(), 8.0 * modules.size());
        QCOMPARE(item->implicitHeight(), 8.0 * modules.size());
        QCOMPARE(moduleError(support::grab(view.window()), item, modules, Qt::black, Qt::white),
                 QString());
    }
}

void TestQRCode::followsItsColors()
{
    support::QmlView view;
    view.load(
        "Item { width: 200; height: 200; QRCode { objectName: 'code'; darkColor: '#102030' } }");
    view.show();
    QQuickItem *item = view.item("code");
    const Modules modules(blackUrl);
    QCOMPARE(moduleError(support::grab(view.window()), item, modules, QColor(0x10, 0x20, 0x30),
                         Qt::white),
             QString());
    item->setProperty("lightColor", QColor(Qt::yellow));
    QCOMPARE(moduleError(support::grab(view.window()), item, modules, QColor(0x10, 0x20, 0x30),
                         Qt::yellow),
             QString());
    item->setProperty("darkColor", QColor(Qt::blue));
    QCOMPARE(moduleError(support::grab(view.window()), item, modules, Qt::blue, Qt::yellow),
             QString());
}

void TestQRCode::followsItsWidth()
{
    support::QmlView view;
    view.load("Item { width: 500; height: 500; QRCode { objectName: 'code' } }");
    view.show();
    QQuickItem *item = view.item("code");
    const Modules modules(blackUrl);
    for (int width : {300, 420, 63}) {
        item->setSize(QSizeF(width, width));
        QCOMPARE(moduleError(support::grab(view.window()), item, modules, Qt::black, Qt::white),
                 QString());
    }
    item->setSize(QSizeF(420, 105));
    QCOMPARE(moduleError(support::grab(view.window()), item, modules, Qt::black, Qt::white),
             QString());
}

void TestQRCode::twoTonesWithoutSmoothing()
{
    support::QmlView view;
    view.load("Item { width: 168; height: 168; QRCode { darkColor: 'red'; lightColor: 'blue' } }");
    view.show();
    const QImage image = support::grab(view.window());
    for (int y = 0; y < 168; ++y) {
        for (int x = 0; x < 168; ++x) {
            const QColor color = image.pixelColor(x, y);
            QVERIFY2(color == QColor(Qt::red) || color == QColor(Qt::blue),
                     qPrintable(color.name()));
        }
    }
}

void TestQRCode::softEdgesWithSmoothing()
{
    support::QmlView view;
    view.load("Rectangle { width: 200; height: 200\n"
              "QRCode { anchors.centerIn: parent; antialiasing: true; rotation: 10 } }");
    view.show();
    const QImage image = support::grab(view.window());
    int between = 0;
    for (int y = 0; y < 200; ++y) {
        for (int x = 0; x < 200; ++x) {
            const int gray = qGray(image.pixel(x, y));
            between += gray > 20 && gray < 235;
        }
    }
    QVERIFY2(between > 1000, qPrintable(QString::number(between)));
}

void TestQRCode::switchesSmoothing()
{
    support::QmlView view;
    view.load("Item { width: 168; height: 168; QRCode { objectName: 'code'; width: 168 } }");
    view.show();
    QQuickItem *item = view.item("code");
    const QImage sharp = support::grab(view.window());
    item->setAntialiasing(true);
    const QImage soft = support::grab(view.window());
    QVERIFY(!support::imageError(soft, sharp).isEmpty());
    item->setAntialiasing(false);
    QCOMPARE(support::imageError(support::grab(view.window()), sharp), QString());
}

void TestQRCode::transparentLightModules()
{
    support::QmlView view;
    view.load("Rectangle { width: 168; height: 168; color: 'yellow'\n"
              "QRCode { objectName: 'code'; lightColor: Qt.rgba(0, 0, 0, 0) } }");
    view.show();
    QCOMPARE(moduleError(support::grab(view.window()), view.item("code"), Modules(blackUrl),
                         Qt::black, Qt::yellow),
             QString());
}

void TestQRCode::tooLongShowsLight()
{
    support::QmlView view;
    view.load("Rectangle { width: 100; height: 100; color: 'red'\n"
              "QRCode { objectName: 'code'; width: 100; height: 100; lightColor: '#00ff80';\n"
              "url: 'https://example.org/' + Array(2953 - 20 + 2).join('x') } }");
    view.show();
    QQuickItem *item = view.item("code");
    QCOMPARE(item->implicitWidth(), -8.0);
    QCOMPARE(item->implicitHeight(), -8.0);
    const QImage image = support::grab(view.window());
    for (const QPoint &point : {QPoint(1, 1), QPoint(50, 50), QPoint(98, 3), QPoint(3, 98)})
        QCOMPARE(support::pixelError(image, point, QColor(0, 255, 128)), QString());
    item->setProperty("moduleSize", 5);
    QCOMPARE(item->implicitWidth(), -5.0);
}

void TestQRCode::fitsAgainAfterTooLong()
{
    support::QmlView view;
    view.load("Item { width: 720; height: 720; QRCode { objectName: 'code'; moduleSize: 4 } }");
    view.show();
    QQuickItem *item = view.item("code");
    item->setProperty("url", QUrl(QStringLiteral("x:") + QString(2952, QLatin1Char('y'))));
    QCOMPARE(item->implicitWidth(), -4.0);
    support::grab(view.window());
    const QByteArray largest = "x:" + QByteArray(2951, 'y');
    item->setProperty("url", QUrl::fromEncoded(largest));
    QCOMPARE(item->implicitWidth(), 4.0 * 177);
    QCOMPARE(
        moduleError(support::grab(view.window()), item, Modules(largest), Qt::black, Qt::white),
        QString());
}

void TestQRCode::signalOrder()
{
    support::QmlView view;
    view.load("Item { width: 100; height: 100; QRCode { objectName: 'code' } }");
    QQuickItem *item = view.item("code");
    support::SignalRecorder recorder;
    recorder.watch(item, QStringLiteral("code"),
                   {QStringLiteral("urlChanged"), QStringLiteral("moduleSizeChanged"),
                    QStringLiteral("darkColorChanged"), QStringLiteral("lightColorChanged"),
                    QStringLiteral("implicitWidthChanged"),
                    QStringLiteral("implicitHeightChanged")},
                   [item] {
                       return QStringLiteral("%1 %2")
                           .arg(item->property("moduleSize").toInt())
                           .arg(item->implicitWidth());
                   });

    item->setProperty("url", QUrl(QStringLiteral("about:black")));
    item->setProperty("url", QUrl());
    item->setProperty("url", QUrl(QStringLiteral("http://[broken")));
    QCOMPARE(recorder.take(), QStringList());

    item->setProperty("url", QUrl(QStringLiteral("about:white")));
    QCOMPARE(recorder.arguments(0), QVariantList{QUrl(QStringLiteral("about:white"))});
    QCOMPARE(recorder.take(), QStringList{QStringLiteral("code.urlChanged [8 168]")});

    item->setProperty("url", QUrl(QStringLiteral("https://example.org/")));
    QCOMPARE(recorder.take(),
             (QStringList{QStringLiteral("code.urlChanged [8 168]"),
                          QStringLiteral("code.implicitWidthChanged [8 200]"),
                          QStringLiteral("code.implicitHeightChanged [8 200]")}));

    item->setProperty("moduleSize", 2);
    QCOMPARE(recorder.take(),
             (QStringList{QStringLiteral("code.implicitWidthChanged [2 50]"),
                          QStringLiteral("code.implicitHeightChanged [2 50]"),
                          QStringLiteral("code.moduleSizeChanged [2 50]")}));

    item->setProperty("darkColor", QColor(Qt::red));
    item->setProperty("darkColor", QColor(Qt::red));
    item->setProperty("lightColor", QColor(Qt::green));
    item->setProperty("lightColor", QColor(Qt::green));
    QCOMPARE(recorder.arguments(0), QVariantList{QColor(Qt::red)});
    QCOMPARE(recorder.take(),
             (QStringList{QStringLiteral("code.darkColorChanged [2 50]"),
                          QStringLiteral("code.lightColorChanged [2 50]")}));
}

void TestQRCode::sizedByItsOwnHandler_data()
{
    QTest::addColumn<QString>("change");
    QTest::newRow("another module size") << "moduleSize = 20";
    QTest::newRow("more modules") << "url = 'https://example.org/longer/than/before'";
}

/// A code that is kept small by a handler of its first extent stays square, and what is announced
/// last is what holds.
void TestQRCode::sizedByItsOwnHandler()
{
    QFETCH(QString, change);
    support::QmlView view;
    view.load("Item { width: 100; height: 100; QRCode { objectName: 'code'\n"
              "onImplicitWidthChanged: if (implicitWidth > 170) moduleSize = 4 } }");
    QQuickItem *item = view.item("code");
    support::SignalRecorder recorder;
    recorder.watch(item, QStringLiteral("code"), {QStringLiteral("moduleSizeChanged")});
    support::evaluate(item, change);
    QCOMPARE(item->property("moduleSize").toInt(), 4);
    QCOMPARE(item->implicitHeight(), item->implicitWidth());
    const int last = recorder.entries().size() - 1;
    QCOMPARE(recorder.arguments(last), QVariantList{4});
}

void TestQRCode::sceneGraphReleasedAndRemade()
{
    support::QmlView view;
    view.load("Item { width: 200; height: 200; QRCode { objectName: 'code'; darkColor: 'red' } }");
    view.window()->setPersistentOpenGLContext(false);
    view.window()->setPersistentSceneGraph(false);
    view.show();
    const Modules modules(blackUrl);
    for (int turn = 0; turn < 3; ++turn) {
        QCOMPARE(moduleError(support::grab(view.window()), view.item("code"), modules, Qt::red,
                             Qt::white),
                 QString());
        const support::FrameCounter gone(view.window(), &QQuickWindow::sceneGraphInvalidated);
        view.window()->destroy();
        // The basic loop keeps a window's scene graph for as long as there is the window.
        if (qgetenv("QSG_RENDER_LOOP") == "threaded")
            QTRY_VERIFY(gone.count() > 0);
        view.show();
    }
}

void TestQRCode::hiddenAndShown()
{
    support::QmlView view;
    view.load("Item { width: 200; height: 200; QRCode { objectName: 'code' } }");
    view.show();
    QQuickItem *item = view.item("code");
    item->setVisible(false);
    support::grab(view.window());
    view.window()->releaseResources();
    item->setVisible(true);
    QCOMPARE(
        moduleError(support::grab(view.window()), item, Modules(blackUrl), Qt::black, Qt::white),
        QString());
}

void TestQRCode::changedWhileHidden()
{
    support::QmlView view;
    view.load("Item { width: 200; height: 200; QRCode { objectName: 'code' } }");
    view.show();
    QQuickItem *item = view.item("code");
    support::grab(view.window());
    item->setVisible(false);
    support::grab(view.window());
    item->setProperty("url", QUrl(QStringLiteral("https://example.org/")));
    item->setProperty("darkColor", QColor(Qt::blue));
    item->setVisible(true);
    QCOMPARE(moduleError(support::grab(view.window()), item, Modules("https://example.org/"),
                         Qt::blue, Qt::white),
             QString());
}

void TestQRCode::throughALayer()
{
    support::QmlView view;
    view.load(
        "Item { width: 200; height: 200; QRCode { objectName: 'code'; layer.enabled: true } }");
    view.show();
    QQuickItem *item = view.item("code");
    const Modules modules(blackUrl);
    for (bool layer : {true, false, true}) {
        support::evaluate(item,
                          QStringLiteral("layer.enabled = %1")
                              .arg(layer ? QStringLiteral("true") : QStringLiteral("false")));
        QCOMPARE(moduleError(support::grab(view.window()), item, modules, Qt::black, Qt::white),
                 QString());
    }
}

void TestQRCode::betweenWindows()
{
    support::QmlView first;
    support::QmlView second;
    first.load("Item { width: 200; height: 200; QRCode { objectName: 'code'; darkColor: 'red' } }");
    second.load("Item { width: 200; height: 200 }");
    first.show();
    second.show();
    QQuickItem *item = first.item("code");
    const Modules modules(blackUrl);
    for (int turn = 0; turn < 4; ++turn) {
        support::QmlView &view = turn % 2 ? second : first;
        item->setParentItem(view.root());
        QCOMPARE(moduleError(support::grab(view.window()), item, modules, Qt::red, Qt::white),
                 QString());
    }
    item->setParentItem(first.root());
    second.close();
    QCOMPARE(moduleError(support::grab(first.window()), item, modules, Qt::red, Qt::white),
             QString());
}

void TestQRCode::manyUrls()
{
    support::QmlView view;
    view.load("Item { width: 300; height: 300; QRCode { objectName: 'code' } }");
    view.show();
    QQuickItem *item = view.item("code");
    for (int turn = 1; turn <= 10000; ++turn) {
        const QByteArray url = "https://example.org/" + QByteArray::number(turn);
        item->setProperty("url", QUrl::fromEncoded(url));
        if (turn % 1000 == 0) {
            QCOMPARE(
                moduleError(support::grab(view.window()), item, Modules(url), Qt::black, Qt::white),
                QString());
        }
    }
}

void TestQRCode::destroyedWhileShown()
{
    support::QmlView view;
    view.load("Rectangle { width: 200; height: 200; color: 'lime'\n"
              "Loader { objectName: 'loader'; sourceComponent: QRCode {} } }");
    view.show();
    support::grab(view.window());
    view.find(QStringLiteral("loader"))->setProperty("active", false);
    const QImage image = support::grab(view.window());
    QCOMPARE(support::pixelError(image, QPoint(20, 20), QColor(0, 255, 0)), QString());
}

void TestQRCode::readBack_data()
{
    QTest::addColumn<QByteArray>("code");
    QTest::newRow("plain") << QByteArray();
    QTest::newRow("smoothed") << QByteArray("antialiasing: true");
    QTest::newRow("small") << QByteArray("moduleSize: 3");
    QTest::newRow("coloured") << QByteArray("darkColor: 'navy'; lightColor: 'lightyellow'");
    QTest::newRow("turned") << QByteArray("rotation: 45; antialiasing: true");
    QTest::newRow("upside down, scaled") << QByteArray("rotation: 180; scale: 1.5");
}

void TestQRCode::readBack()
{
    QFETCH(QByteArray, code);
    const QString zbar = QStandardPaths::findExecutable(QStringLiteral("zbarimg"));
    QVERIFY2(!zbar.isEmpty(), "zbarimg is not installed");
    const QByteArray url("https://example.org/catalogue?item=4711&colour=green#photos");
    support::QmlView view;
    // The light rectangle leaves the quiet zone.
    view.load("Rectangle { width: 600; height: 600; color: code.lightColor\n"
              "QRCode { id: code; anchors.centerIn: parent; url: '"
              + url + "'; " + code + " } }");
    view.show();
    QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("code.png"));
    QVERIFY(support::grab(view.window()).save(file));
    QProcess process;
    process.start(
        zbar,
        {QStringLiteral("--nodbus"), QStringLiteral("--quiet"), QStringLiteral("--raw"), file});
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.readAllStandardOutput().trimmed(), url);
}

QTEST_MAIN(TestQRCode)
#include "tst_qrcode.moc"
