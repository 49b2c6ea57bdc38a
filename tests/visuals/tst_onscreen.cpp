// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/Leftovers.h"
#include "tests/support/Pixels.h"
#include "tests/support/QmlView.h"
#include "tests/support/Screen.h"

#include <QDir>
#include <QMetaProperty>
#include <QQmlComponent>
#include <QQmlProperty>
#include <QRegularExpression>
#include <QTest>

#include <algorithm>
#include <memory>

using namespace support;

/// A change of any property of any drawn item reaches the screen by itself, and what changes
/// nothing asks for no frame. The cases are in data/onscreen; Stage.qml says how they read.
class TestOnScreen : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyDrawnTypeHasACase();
    void change_data();
    void change();
    void cleanupTestCase();

private:
    void show(const QString &type, const QString &place);

    // Rows that share type and place share the window: most of the time would go into windows.
    std::unique_ptr<QmlView> m_view;
    QString m_shown; ///< What is in it; empty from a change until it is taken back.
};

namespace {

QDir cases()
{
    return QDir(QFINDTESTDATA("data/onscreen"));
}

QStringList caseNames()
{
    QStringList names;
    const auto files = cases().entryInfoList({QStringLiteral("*.qml")}, QDir::Files, QDir::Name);
    for (const QFileInfo &file : files) {
        names.append(file.completeBaseName());
    }
    names.removeAll(QStringLiteral("Stage"));
    return names;
}

bool hasContents(const QObject *object)
{
    const auto *item = qobject_cast<const QQuickItem *>(object);
    if (item && item->flags() & QQuickItem::ItemHasContents) {
        return true;
    }
    const auto &children = object->children();
    return std::any_of(children.begin(), children.end(), hasContents);
}

/// What of every item reaches the drawing: a case states these, too.
const QStringList commonProperties = {
    QStringLiteral("x"),       QStringLiteral("width"),   QStringLiteral("height"),
    QStringLiteral("opacity"), QStringLiteral("visible"),
};

/// The properties that the type itself declares, as its meta-object has them.
QStringList ownProperties(const QMetaObject *meta)
{
    QStringList names;
    for (int i = QQuickItem::staticMetaObject.propertyCount(); i < meta->propertyCount(); ++i) {
        names.append(QString::fromLatin1(meta->property(i).name()));
    }
    return names;
}

bool isSeen(const QImage &image, const QVariantList &sample)
{
    const QRect area(sample.value(0).toInt(), sample.value(1).toInt(), sample.value(2).toInt(),
                     sample.value(3).toInt());
    const QColor color(sample.value(4).toString());
    const int tolerance = sample.value(5, 2).toInt();
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            if (pixelError(image, {x, y}, color, tolerance).isEmpty()) {
                return true;
            }
        }
    }
    return false;
}

/// Empty when all of \a expected is seen in \a image and nothing of \a unexpected.
QString sightError(const QImage &image, const QVariantList &expected,
                   const QVariantList &unexpected)
{
    QStringList errors;
    const auto note = [&](const QVariantList &samples, bool wanted, const char *text) {
        for (const QVariant &entry : samples) {
            const QVariantList sample = entry.toList();
            if (isSeen(image, sample) != wanted) {
                errors.append(QString::fromLatin1(text).arg(
                    sample.value(4).toString(), sample.value(0).toString(),
                    sample.value(1).toString(),
                    image.pixelColor(sample.value(0).toInt(), sample.value(1).toInt()).name()));
            }
        }
    };
    note(expected, true, "no %1 at (%2, %3), which is %4");
    note(unexpected, false, "still %1 at (%2, %3), which begins with %4");
    return errors.join(QStringLiteral("; "));
}

void load(QmlView &view, const QString &type)
{
    view.loadFile(cases().filePath(type + QStringLiteral(".qml")));
    if (!view.find(QStringLiteral("subject"))) {
        qFatal("%s has no subject", qPrintable(type));
    }
}

QVariantMap expectationsOf(const QmlView &view)
{
    return evaluate(view.root(), QStringLiteral("expectations")).toMap();
}

} // namespace

/// Drawn is what has contents in the scene graph, or owns an item that has.
void TestOnScreen::everyDrawnTypeHasACase()
{
    QFile file(qEnvironmentVariable("OMBREL_SOURCE_DIR")
               + QStringLiteral("/plugin/Registration.cpp"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QQmlEngine engine;
    QStringList drawn;
    const QRegularExpression registration(
        QStringLiteral("qmlRegisterType<\\w+>\\(uri, 1, 0, \"(\\w+)\"\\)"));
    auto matches = registration.globalMatch(QString::fromUtf8(file.readAll()));
    while (matches.hasNext()) {
        const QString type = matches.next().captured(1);
        QQmlComponent component(&engine);
        component.setData("import ombrel.Controls 1.0\nimport ombrel.Controls.Private 1.0\n"
                              + type.toUtf8() + " {}",
                          QUrl());
        const QScopedPointer<QObject> object(component.create());
        QVERIFY2(object, qPrintable(component.errorString()));
        if (hasContents(object.data())) {
            drawn.append(type);
        }
    }
    drawn.sort();
    QVERIFY(drawn.size() >= 6);
    QCOMPARE(caseNames(), drawn);
}

void TestOnScreen::change_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("property");
    QTest::addColumn<QString>("place");
    const QStringList types = caseNames();
    for (const QString &type : types) {
        QmlView view;
        load(view, type);
        const QStringList own = ownProperties(view.item("subject")->metaObject());
        if (own.isEmpty()) {
            qFatal("%s declares no property", qPrintable(type));
        }
        // What a case states beyond these is looked at as well.
        QStringList properties = own + commonProperties + expectationsOf(view).keys();
        properties.removeDuplicates();
        for (const char *place : {"plain", "in a layer", "in an effect source"}) {
            for (const QString &property : qAsConst(properties)) {
                const QString row =
                    QStringLiteral("%1.%2, %3").arg(type, property, QLatin1String(place));
                QTest::newRow(qPrintable(row)) << type << property << QString::fromLatin1(place);
            }
        }
    }
}

void TestOnScreen::show(const QString &type, const QString &place)
{
    if (m_view && m_shown == type + place) {
        return;
    }
    m_view.reset(new QmlView);
    load(*m_view, type);
    m_view->root()->setProperty("place", place);
    pinToScreen(m_view->window());
    m_view->show();
    m_shown = type + place;
}

void TestOnScreen::change()
{
    QFETCH(QString, type);
    QFETCH(QString, property);
    QFETCH(QString, place);
    show(type, place);
    const QVariantMap expectations = expectationsOf(*m_view);
    QVERIFY2(expectations.contains(property), "the case says nothing of this property");
    const QVariantMap expectation = expectations.value(property).toMap();
    const QVariantList before = expectation.value(QStringLiteral("before")).toList();
    const QVariantList after = expectation.value(QStringLiteral("after")).toList();
    const bool silent = expectation.value(QStringLiteral("silent")).toBool();
    QVERIFY2(silent == (before + after).isEmpty(), "either silent, or something to see");

    QQuickWindow *const window = m_view->window();
    QQmlProperty subject(m_view->item("subject"), property);
    const QVariant old = subject.read();
    FrameCounter frames(window);
    frames.settle();
    QTRY_COMPARE(sightError(screenPixels(window), before, after), QString());
    const QImage picture = screenPixels(window);

    m_shown.clear();
    frames.reset();
    QVERIFY(subject.write(expectation.value(QStringLiteral("to"))));
    const QVariant now = subject.read();
    QVERIFY2(now != old, "the case changes nothing");
    if (silent) {
        frames.settle();
        QCOMPARE(frames.count(), 0);
        QCOMPARE(imageError(screenPixels(window), picture, 0), QString());
    } else {
        QTRY_VERIFY2(frames.count() > 0, "no frame came");
        QTRY_COMPARE(sightError(screenPixels(window), after, before), QString());
        frames.settle();
    }

    // The same value again is no change.
    frames.reset();
    QVERIFY(subject.write(now));
    frames.settle();
    QCOMPARE(frames.count(), 0);

    QVERIFY(subject.write(old));
    m_shown = type + place;
}

void TestOnScreen::cleanupTestCase()
{
    m_view.reset();
    QCOMPARE(leftovers(), QString());
}

QTEST_MAIN(TestOnScreen)
#include "tst_onscreen.moc"
