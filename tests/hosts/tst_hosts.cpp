// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/hosts/Difference.h"
#include "tests/hosts/Server.h"
#include "tests/support/Text.h"

#include <QDir>
#include <QHash>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace support;

namespace {

struct HostCase
{
    const char *name;
    const char *host; ///< As host_pictures calls it.
    QStringList environment;
    QStringList leftOut = {}; ///< The types of items that are not seen.
    const char *message = ""; ///< What is said of that.
    Server::Kind server = Server::None;
};

const QVector<HostCase> &hosts()
{
    static const QVector<HostCase> all = {
        {"OpenGL ES", "es", {}},
        {"core profile", "core", {}},
        // A Frame's ring and a dialog lie above all else in the window: not in the item.
        {"grabToImage", "item", {}, {text("FrameItem"), text("DialogItem")}},
        {"layer", "layer", {}},
        {"ShaderEffectSource", "effect", {}},
        {"QQuickWidget", "widget", {}},
        {"QQuickRenderControl", "control", {}},
        {"software",
         "view",
         {text("QT_QUICK_BACKEND=software")},
         {text("CheckerBox"), text("DashedBorder"), text("FrameItem"), text("HueBox"),
          text("QRCode"), text("SaturationValueBox")},
         "CheckerBox, DashedBorder, Frame, HueBox, QRCode and SaturationValueBox are not drawn by "
         "the renderer \"software\": see docs/renderers.md\n"},
        {"RHI",
         "view",
         {text("QSG_RHI=1")},
         {text("CheckerBox"), text("DashedBorder"), text("QRCode")},
         "CheckerBox, DashedBorder and QRCode are not drawn by the renderer \"rhi\": "
         "see docs/renderers.md\n"},
        {"scale 1.25", "view", {text("QT_SCALE_FACTOR=1.25")}},
        {"scale 2", "view", {text("QT_SCALE_FACTOR=2")}},
        {"scale 3", "view", {text("QT_SCALE_FACTOR=3")}},
        {"Wayland", "view", {text("QT_QPA_PLATFORM=wayland")}, {}, "", Server::Wayland},
        {"second screen", "moved", {}, {}, "", Server::TwoScreens},
        {"second screen of scale 2",
         "moved",
         {text("QT_SCREEN_SCALE_FACTORS=1;2")},
         {},
         "",
         Server::TwoScreens},
    };
    return all;
}

/// Examples that move by themselves: no two pictures of them are alike.
bool moves(const QString &example)
{
    static const QStringList all = {text("FpsCounterExample"), text("ImagesExample"),
                                    text("PopupAnchorItemExample")};
    return all.contains(example);
}

/// Those of the default run: a shader, dashes, what follows its item with each frame, and a
/// texture, with Qt's own text and lines around them.
QStringList someExamples()
{
    return {text("CheckerBoxExample"), text("DashedBorderExample"), text("FrameExample"),
            text("PopupExample"), text("QRCodeExample")};
}

} // namespace

/// Every example looks in every host of Qt Quick as it does in a window of its own, or what is
/// missing is said. By default with some examples; with OMBREL_HOSTS=all, which the job "hosts" of
/// tools/test sets, with all.
class TestHosts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void differencesAreSeen();
    void looksLikeInAWindow_data();
    void looksLikeInAWindow();
    void saysWhatIsMissing_data();
    void saysWhatIsMissing();

private:
    QString show(const HostCase &host, const QString &folder);
    QImage picture(const QString &folder, const QString &example) const;

    QTemporaryDir m_folder;
    QStringList m_examples;
    QHash<QString, QString> m_said; ///< By the name of the host.
};

/// Shows the examples in \a host, and answers what was said.
QString TestHosts::show(const HostCase &host, const QString &folder)
{
    QDir(m_folder.path()).mkpath(folder);
    const Server server(host.server, m_folder.path());
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    server.addTo(environment);
    // Hosts are Qt's, and several leave something behind when a process ends.
    environment.insert(text("ASAN_OPTIONS"),
                       environment.value(text("ASAN_OPTIONS")) + text(":detect_leaks=0"));
    for (const QString &variable : host.environment) {
        environment.insert(variable.section(QLatin1Char('='), 0, 0),
                           variable.section(QLatin1Char('='), 1));
    }
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(qEnvironmentVariable("OMBREL_BUILD_DIR") + text("/tests/host_pictures"),
                  QStringList{QString::fromLatin1(host.host), m_folder.filePath(folder)}
                      + m_examples);
    if (!process.waitForFinished(240000) || process.exitStatus() != QProcess::NormalExit
        || process.exitCode() != 0) {
        process.kill();
        return text("it ended badly: ") + QString::fromUtf8(process.readAll());
    }
    QString said = QString::fromUtf8(process.readAll());
    said.remove(text("Registering types of Controls plugin\n"));
    return said;
}

QImage TestHosts::picture(const QString &folder, const QString &example) const
{
    return QImage(m_folder.filePath(folder + QLatin1Char('/') + example + text(".png")));
}

void TestHosts::initTestCase()
{
    m_examples = someExamples();
    if (qEnvironmentVariable("OMBREL_HOSTS") == text("all")) {
        m_examples.clear();
        const QDir snippets(qEnvironmentVariable("OMBREL_SOURCE_DIR") + text("/docs/snippets"));
        const auto files = snippets.entryInfoList({text("*.qml")}, QDir::Files);
        for (const QFileInfo &file : files) {
            m_examples.append(file.completeBaseName());
        }
    }
    QCOMPARE(show({"window", "view", {}}, text("window")), QString());
    for (const HostCase &host : hosts()) {
        const QString name = QString::fromLatin1(host.name);
        m_said.insert(name, show(host, name));
    }
}

void TestHosts::saysWhatIsMissing_data()
{
    QTest::addColumn<QString>("message");
    for (const HostCase &host : hosts()) {
        QTest::newRow(host.name) << QString::fromLatin1(host.message);
    }
}

/// Once, whatever is shown; and nothing else is said.
void TestHosts::saysWhatIsMissing()
{
    QFETCH(QString, message);
    QCOMPARE(m_said.value(QString::fromLatin1(QTest::currentDataTag())), message);
}

/// The comparison is coarse; this is what it still sees.
void TestHosts::differencesAreSeen()
{
    QImage expected(80, 80, QImage::Format_RGB32);
    expected.fill(Qt::white);
    expected.setText(text("Drawn"), text("HueBox 40 40 16 16"));
    QCOMPARE(differenceError(expected, expected, {}, 24), QString());
    QCOMPARE(differenceError(expected.scaled(160, 160), expected, {}, 24), QString());
    const QString seen = text("what is to be left out is seen");
    QCOMPARE(differenceError(expected, expected, {text("HueBox")}, 24), seen);

    QImage actual = expected;
    for (int x = 40; x < 48; ++x) {
        actual.setPixel(x, 44, qRgb(0, 0, 0));
    }
    QCOMPARE(differenceError(actual, expected, {}, 24),
             text("it looks different by 32 around (43, 43)"));
    QCOMPARE(differenceError(actual, expected, {text("HueBox")}, 24), QString());
    QCOMPARE(differenceError(actual, expected, {text("QRCode")}, 24),
             text("it looks different by 32 around (43, 43)"));
}

void TestHosts::looksLikeInAWindow_data()
{
    QTest::addColumn<QString>("host");
    QTest::addColumn<QString>("example");
    QTest::addColumn<QStringList>("leftOut");
    QTest::addColumn<int>("tolerance");
    for (const HostCase &host : hosts()) {
        for (const QString &example : qAsConst(m_examples)) {
            if (!moves(example)) {
                QTest::addRow("%s, %s", host.name, qPrintable(example))
                    << QString::fromLatin1(host.name) << example
                    << host.leftOut
                    // The software renderer places each letter at whole pixels.
                    << (qstrcmp(host.name, "software") == 0 ? 40 : 30);
            }
        }
    }
}

void TestHosts::looksLikeInAWindow()
{
    QFETCH(QString, host);
    QFETCH(QString, example);
    QFETCH(QStringList, leftOut);
    QFETCH(int, tolerance);
    const QImage expected = picture(text("window"), example);
    QVERIFY(!expected.isNull());
    QImage actual = picture(host, example);
    QVERIFY(!actual.isNull());
    const QString error = differenceError(actual, expected, leftOut, tolerance);
    QVERIFY2(error.isEmpty(), qPrintable(error));
}

QTEST_GUILESS_MAIN(TestHosts)
#include "tst_hosts.moc"
