// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/Leftovers.h"
#include "tests/support/ObjectCensus.h"
#include "tests/support/QmlView.h"
#include "tests/support/RegisteredTypes.h"

#include <QColor>
#include <QFile>
#include <QMetaProperty>
#include <QTest>

#include <malloc.h>

#ifdef __SANITIZE_ADDRESS__
extern "C" size_t __sanitizer_get_current_allocated_bytes();
#endif

/// A document that uses every type, loaded over and over, and changed over and over: what lives,
/// what is drawn with and the memory are as before. OMBREL_CENSUS_ROUNDS says how often; the
/// default of 30 takes seconds.
class TestCensus : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everythingIsThere();
    void reloads_data() { documents(); }
    void reloads();
    void changes_data() { documents(); }
    void changes();
    void cleanup();

private:
    void documents();
};

namespace {

int rounds()
{
    const int asked = qEnvironmentVariableIntValue("OMBREL_CENSUS_ROUNDS");
    return asked > 0 ? asked : 30;
}

// malloc() counts what it keeps for the thread as allocated, and has ever more kinds of blocks to
// keep: up to 1,500 bytes a reload of what is no leak. The sanitizer counts what is allocated.
#ifdef __SANITIZE_ADDRESS__
const double flat = 1000;
#else
const double flat = 4000;
#endif

qint64 allocatedBytes()
{
#ifdef __SANITIZE_ADDRESS__
    return qint64(__sanitizer_get_current_allocated_bytes());
#else
    const auto info = mallinfo2();
    return qint64(info.uordblks + info.hblkhd);
#endif
}

/// What a window shows, counted.
struct Count
{
    QStringList objects = support::livingObjects();
    QStringList textures = support::livingTextures();
    QStringList nodes = support::livingNodes();
    QStringList filters = support::eventFilters();
    QStringList timers = support::activeTimers();

    QString differenceTo(const Count &other) const
    {
        QStringList found;
        const auto compare = [&found](const char *what, QStringList now, QStringList before) {
            const QStringList all = now;
            for (const QString &name : qAsConst(before)) {
                now.removeOne(name);
            }
            for (const QString &name : all) {
                before.removeOne(name);
            }
            if (!now.isEmpty() || !before.isEmpty()) {
                found.append(QStringLiteral("%1: more %2; less %3")
                                 .arg(QLatin1String(what), now.join(QStringLiteral(", ")),
                                      before.join(QStringLiteral(", "))));
            }
        };
        compare("objects", objects, other.objects);
        compare("textures", textures, other.textures);
        compare("nodes", nodes, other.nodes);
        compare("filters", filters, other.filters);
        compare("timers", timers, other.timers);
        return found.join(QStringLiteral("; "));
    }
};

void settle(const support::QmlView &view)
{
    for (int i = 0; i < 2; ++i) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }
    QVERIFY(!view.window()->grabWindow().isNull());
}

/// What JavaScript holds goes in rounds: each lets go of what holds the next.
void collect(const support::QmlView &view)
{
    for (int i = 0; i < 4; ++i) {
        view.engine()->collectGarbage();
        settle(view);
    }
}

/// What is there once nothing goes any more: under load a texture that another has replaced may
/// wait for more frames than collect() makes.
Count settledCount(const support::QmlView &view)
{
    Count count;
    for (int alike = 0, attempt = 0; alike < 3 && attempt < 50; ++attempt) {
        collect(view);
        Count next;
        alike = next.differenceTo(count).isEmpty() ? alike + 1 : 0;
        count = std::move(next);
    }
    return count;
}

/// All objects of a document, by ownership and by sight.
void addObjects(QObject *object, QObjectList *found)
{
    if (found->contains(object)) {
        return;
    }
    found->append(object);
    const auto *const item = qobject_cast<QQuickItem *>(object);
    const auto items = item ? item->childItems() : QList<QQuickItem *>();
    for (QQuickItem *child : items) {
        addObjects(child, found);
    }
    const auto children = object->children();
    for (QObject *child : children) {
        addObjects(child, found);
    }
}

/// How the memory grows. It goes up and down with what JavaScript has not collected yet, and with
/// buffers that the driver takes and gives back: the least of the first half of the rounds is
/// compared with the least of the second.
class Growth
{
public:
    explicit Growth(int rounds)
        : m_rounds(rounds)
    {
    }
    void note(int round, const support::QmlView &view)
    {
        if (round % qMax(1, m_rounds / 20) != 0) {
            return;
        }
        collect(view);
        qint64 &least = round < m_rounds / 2 ? m_firstHalf : m_secondHalf;
        least = least == 0 ? allocatedBytes() : qMin(least, allocatedBytes());
    }
    double perRound() const { return double(m_secondHalf - m_firstHalf) / (m_rounds / 2.0); }

private:
    const int m_rounds;
    qint64 m_firstHalf = 0;
    qint64 m_secondHalf = 0;
};

/// How many bytes more each \a round takes. What leaks does so each time it is counted; a buffer
/// that the driver takes once for all, just then, does not.
template<typename Round>
double bytesPerRound(int rounds, const support::QmlView &view, Round round)
{
    double least = 0;
    for (int attempt = 0; attempt < 3 && (attempt == 0 || least >= flat); ++attempt) {
        Growth growth(rounds);
        for (int i = 0; i < rounds; ++i) {
            round(i);
            growth.note(i, view);
        }
        least = attempt == 0 ? growth.perRound() : qMin(least, growth.perRound());
    }
    return least;
}

} // namespace

void TestCensus::documents()
{
    QTest::addColumn<QString>("file");
    QTest::newRow("nothing but Qt") << QStringLiteral("data/census/plain.qml");
    QTest::newRow("everything") << QStringLiteral("data/census/everything.qml");
}

/// A type that is added is in, or it is missed here.
void TestCensus::everythingIsThere()
{
    QFile file(QFINDTESTDATA("data/census/everything.qml"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QString document = QString::fromUtf8(file.readAll());
    const QStringList types = support::registeredTypes()
        + QStringList{QStringLiteral("Document"), QStringLiteral("Context")};
    for (const QString &type : types) {
        QVERIFY2(document.contains(QStringLiteral(" %1 {").arg(type)), qPrintable(type));
    }
}

void TestCensus::reloads()
{
    QFETCH(QString, file);
    support::QmlView view;
    const auto load = [&] {
        view.loadFile(file);
        if (!view.window()->isVisible()) {
            view.show();
        }
        QMetaObject::invokeMethod(view.root(), "openAll");
        settle(view);
    };
    load();
    load();
    const Count before = settledCount(view);
    const double bytes = bytesPerRound(rounds(), view, [&](int) { load(); });
    QCOMPARE(settledCount(view).differenceTo(before), QString());
    qInfo("%d reloads, %.0f bytes more a reload", rounds(), bytes);
    QVERIFY2(bytes < flat, "the memory is not flat");
}

/// Every colour, length and text of every object in the document, ten times as often as it is
/// loaded anew.
void TestCensus::changes()
{
    QFETCH(QString, file);
    support::QmlView view;
    view.loadFile(file);
    view.show();
    QMetaObject::invokeMethod(view.root(), "openAll");
    settle(view);

    std::vector<std::pair<QPointer<QObject>, QMetaProperty>> properties;
    QObjectList objects;
    addObjects(view.window()->contentItem(), &objects);
    for (QObject *object : qAsConst(objects)) {
        const QMetaObject *const meta = object->metaObject();
        for (int i = 0; i < meta->propertyCount(); ++i) {
            const QMetaProperty property = meta->property(i);
            const QByteArray name = property.name();
            const bool isChanged = property.userType() == QMetaType::QColor || name == "width"
                || name == "height" || name == "text" || name == "url";
            if (isChanged && property.isWritable() && property.read(object).isValid()) {
                properties.emplace_back(object, property);
            }
        }
    }
    QVERIFY(properties.size() > 40);
    const auto change = [&](int round) {
        for (const auto &[object, property] : properties) {
            if (!object) {
                continue;
            }
            QVariant value;
            switch (property.userType()) {
            case QMetaType::QColor:
                value = QColor::fromHsv(round % 360, 200, 200);
                break;
            case QMetaType::QString:
                value = QStringLiteral("text %1").arg(round % 10);
                break;
            case QMetaType::QUrl:
                value = QUrl(QStringLiteral("https://a.example/%1").arg(round % 10));
                break;
            default:
                value = 20 + round % 10;
                break;
            }
            property.write(object, value);
        }
        settle(view);
    };
    for (int round = 0; round < 20; ++round) {
        change(round);
    }
    const Count before = settledCount(view);
    const int all = rounds() * 10;
    const double bytes = bytesPerRound(all, view, change);
    // As it was when it was counted.
    change(19);
    QCOMPARE(settledCount(view).differenceTo(before), QString());
    qInfo("%d rounds of changes to %d properties, %.0f bytes more a round", all,
          int(properties.size()), bytes);
    QVERIFY2(bytes < flat, "the memory is not flat");
}

void TestCensus::cleanup()
{
    QCOMPARE(support::leftovers(), QString());
}

QTEST_MAIN(TestCensus)
#include "tst_census.moc"
