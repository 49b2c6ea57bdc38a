// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/Leftovers.h"
#include "tests/support/Pixels.h"
#include "tests/support/QmlView.h"

#include <QDir>
#include <QOpenGLContext>
#include <QSurfaceFormat>
#include <QTest>

using namespace support;

/// Each file of data/render carries its own expectations: lists of samples [x, y, colour,
/// tolerance] that hold before and after change(), and how many there are of both. They hold for
/// every kind of OpenGL context that an application may ask for.
class TestRender : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyCaseIsThere();
    void samples_data();
    void samples();
    void cleanup();

private:
    QString samplesError(const QmlView &view, const char *property, int *count) const;
};

static QDir cases()
{
    return QDir(QFINDTESTDATA("data/render"));
}

QString TestRender::samplesError(const QmlView &view, const char *property, int *count) const
{
    const QImage image = grab(view.window());
    const QVariantList samples =
        evaluate(view.root(), QLatin1String(property)).value<QVariantList>();
    QStringList errors;
    for (const QVariant &entry : samples) {
        const QVariantList sample = entry.toList();
        const QString error =
            pixelError(image, {sample.value(0).toInt(), sample.value(1).toInt()},
                       QColor(sample.value(2).toString()), sample.value(3, 2).toInt());
        if (!error.isEmpty()) {
            errors.append(error);
        }
    }
    *count += samples.size();
    return errors.join(QStringLiteral("; "));
}

void TestRender::everyCaseIsThere()
{
    QVERIFY(cases().entryList({QStringLiteral("*.qml")}, QDir::Files).size() >= 14);
}

void TestRender::samples_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QSurfaceFormat>("format");
    // The defaults of a window, as OpenGL ES, and as a core profile.
    const QSurfaceFormat compatible = QQuickWindow().requestedFormat();
    QSurfaceFormat embedded = compatible;
    embedded.setRenderableType(QSurfaceFormat::OpenGLES);
    embedded.setVersion(2, 0);
    QSurfaceFormat core = compatible;
    core.setVersion(3, 2);
    core.setProfile(QSurfaceFormat::CoreProfile);
    const auto files = cases().entryInfoList({QStringLiteral("*.qml")}, QDir::Files);
    for (const QFileInfo &file : files) {
        const QByteArray name = file.completeBaseName().toUtf8();
        QTest::newRow(name) << file.absoluteFilePath() << compatible;
        QTest::newRow(name + ", OpenGL ES") << file.absoluteFilePath() << embedded;
        QTest::newRow(name + ", core profile") << file.absoluteFilePath() << core;
    }
}

void TestRender::samples()
{
    QFETCH(QString, file);
    QFETCH(QSurfaceFormat, format);
    QmlView view;
    view.loadFile(file);
    view.window()->setFormat(format);
    view.show();
    framesWhileIdle(view.window(), 0);
    const QOpenGLContext *const context = view.window()->openglContext();
    QCOMPARE(context->isOpenGLES(), format.renderableType() == QSurfaceFormat::OpenGLES);
    QCOMPARE(context->format().profile() == QSurfaceFormat::CoreProfile,
             format.profile() == QSurfaceFormat::CoreProfile);
    int count = 0;
    QCOMPARE(samplesError(view, "before", &count), QString());
    evaluate(view.root(), QStringLiteral("change()"));
    // What follows another item does so with the frame after the next.
    framesWhileIdle(view.window(), 0);
    QCOMPARE(samplesError(view, "after", &count), QString());
    QCOMPARE(count, evaluate(view.root(), QStringLiteral("sampleCount")).toInt());
}

void TestRender::cleanup()
{
    QCOMPARE(leftovers(), QString());
}

QTEST_MAIN(TestRender)
#include "tst_render.moc"
