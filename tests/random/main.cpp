// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

// random_steps --catalog        prints what there is to compose from
// random_steps --survey FILE    makes the documents of the steps in FILE without using them, and
//                               says what is in them
// random_steps FILE SECONDS     takes the steps in FILE, at most so long; the first step is
//                               ["end", ORDER], how the end goes
//
// Says "step N" before each, and "wrong: ..." for what is wrong at the end: a frame in a window
// that nobody touches, and what is left over.

#include "tests/random/Catalog.h"
#include "tests/random/Player.h"
#include "tests/random/Survey.h"
#include "tests/support/Leftovers.h"

#include <QClipboard>
#include <QDrag>
#include <QFile>
#include <QGuiApplication>
#include <QJsonDocument>
#include <QStyleHints>
#include <QTest>
#include <QTimer>

#include <cstdio>

namespace {

void say(const QString &text)
{
    std::printf("%s\n", qPrintable(text));
    std::fflush(stdout);
}

/// What a document does by itself has an end; then nothing may ask for a frame any more.
void checkFrames(Scene &scene)
{
    QTest::qWait(1500);
    int frames = 0;
    for (int index = 0; index < 2; ++index) {
        QObject::connect(scene.window(index), &QQuickWindow::frameSwapped, scene.window(index),
                         [&frames] { ++frames; });
    }
    QTest::qWait(400);
    if (frames > 0) {
        say(QStringLiteral("wrong: %1 frames in windows that nobody touches").arg(frames));
    }
    for (int index = 0; index < 2; ++index) {
        scene.window(index)->disconnect();
    }
}

QJsonArray stepsIn(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("There is no such file");
    }
    return QJsonDocument::fromJson(file.readAll()).array();
}

void play(const QJsonArray &steps, int seconds)
{
    Scene scene;
    const int order = steps.at(0).toArray().at(1).toInt();
    {
        Player player(scene, steps, 1000 * seconds);
        bool finished = false;
        QObject::connect(&player, &Player::finished, [&finished] { finished = true; });
        // A drag that begins in the same turn as the end has nobody who would end it.
        QTimer canceller;
        QObject::connect(&canceller, &QTimer::timeout, [] { QDrag::cancel(); });
        QObject::connect(&player, &Player::finished, [&canceller] { canceller.start(50); });
        player.start();
        while (!finished) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
        QDrag::cancel();
    }
    checkFrames(scene);
    say(QStringLiteral("end"));
    scene.tearDown(order);
}

} // namespace

int main(int argc, char *argv[])
{
    QGuiApplication application(argc, argv);
    application.setQuitOnLastWindowClosed(false);
    application.styleHints()->setCursorFlashTime(0);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) == QLatin1String("--catalog")) {
        QQmlEngine engine;
        say(QString::fromUtf8(QJsonDocument(catalog(engine)).toJson()));
        return 0;
    }
    if (arguments.value(1) == QLatin1String("--survey")) {
        say(QString::fromUtf8(QJsonDocument(survey(stepsIn(arguments.value(2)))).toJson()));
        return 0;
    }
    play(stepsIn(arguments.value(1)), arguments.value(2).toInt());
    // What was copied lives until something else is.
    QGuiApplication::clipboard()->clear(QClipboard::Clipboard);
    QGuiApplication::clipboard()->clear(QClipboard::Selection);
    // The platform's own timer, by which it follows the focus, runs on after the last window.
    QString left;
    if (!QTest::qWaitFor([&left] { return (left = support::leftovers()).isEmpty(); }, 2000)) {
        say(QStringLiteral("wrong: left over: ") + left);
    }
    say(QStringLiteral("done"));
    return 0;
}
