// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "gallery/FolderTree.h"
#include "gallery/GalleryEngine.h"
#include "tests/gallery/GalleryWindow.h"
#include "tests/support/Items.h"
#include "tests/support/Leftovers.h"

#include <QAccessible>
#include <QFile>
#include <QQmlApplicationEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

/// The gallery for those who do not see it or use no pointer: what a screen reader is told of each
/// page, and where Tab goes.
class TestAccess : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void everythingHasAName_data();
    void everythingHasAName();
    void everyControlIsReached_data();
    void everyControlIsReached();
    void whatTakesPressesIsKnown_data();
    void whatTakesPressesIsKnown();
    void pressesOfAScreenReaderCount();
    void focusIsSeen_data();
    void focusIsSeen();

private:
    void addPages();
    void open(const QString &page);
    /// The items that Tab comes to, in their order.
    QVector<QQuickItem *> stops();

    QTemporaryDir m_folder;
    std::unique_ptr<om::gallery::FolderTree> m_tree;
    std::unique_ptr<QQmlApplicationEngine> m_engine;
    QQuickWindow *m_window = nullptr;
};

namespace {

struct Node
{
    QAccessibleInterface *interface;
    QString path;
};

// All that is shown below `parent`, depth first, each with the names on the way to it.
void collect(QAccessibleInterface *parent, const QString &path, QVector<Node> *nodes)
{
    for (int i = 0; i < parent->childCount(); ++i) {
        QAccessibleInterface *child = parent->child(i);
        if (!child || child->state().invisible) {
            continue;
        }
        const QMetaEnum roles = QMetaEnum::fromType<QAccessible::Role>();
        const QString here = path + " / " + roles.valueToKey(child->role()) + " \""
            + child->text(QAccessible::Name) + '"';
        nodes->append({child, here});
        collect(child, here, nodes);
    }
}

QVector<Node> nodesOf(QQuickWindow *window)
{
    QVector<Node> nodes;
    collect(QAccessible::queryAccessibleInterface(window), QString(), &nodes);
    return nodes;
}

// What does something, and is no container or text.
bool isControl(QAccessible::Role role)
{
    static const QSet<int> roles{
        QAccessible::Button,   QAccessible::CheckBox, QAccessible::RadioButton,
        QAccessible::Slider,   QAccessible::ComboBox, QAccessible::EditableText,
        QAccessible::Link,     QAccessible::ListItem, QAccessible::TreeItem,
        QAccessible::MenuItem, QAccessible::SpinBox,  QAccessible::PageTab,
    };
    return roles.contains(role);
}

// What the arrow keys of the list around it reach.
bool isEntry(QAccessible::Role role)
{
    return role == QAccessible::ListItem || role == QAccessible::TreeItem
        || role == QAccessible::MenuItem || role == QAccessible::RadioButton;
}

// A test's message has room for about a thousand characters: the ends of the first few.
QString list(const QStringList &paths)
{
    QString text = QString("%1 of them").arg(paths.size());
    for (const QString &path : paths.mid(0, 9)) {
        text += "\n... " + path.right(90);
    }
    return text;
}

bool isWithin(QQuickItem *item, QQuickItem *ancestor)
{
    return ancestor && (item == ancestor || ancestor->isAncestorOf(item));
}

// What an entry is in.
QQuickItem *listOf(QAccessibleInterface *entry)
{
    static const QSet<int> lists{QAccessible::List, QAccessible::Tree, QAccessible::PopupMenu};
    QAccessibleInterface *around = entry->parent();
    while (around && !lists.contains(around->role())) {
        around = around->parent();
    }
    return around ? qobject_cast<QQuickItem *>(around->object()) : nullptr;
}

} // namespace

void TestAccess::initTestCase()
{
    QVERIFY(m_folder.isValid());
    for (const char *name : {"hills.txt", "song.ogg"}) {
        QFile file(m_folder.filePath(name));
        QVERIFY(file.open(QFile::WriteOnly));
    }
    QVERIFY(QDir(m_folder.path()).mkpath("album/inner"));
    QAccessible::setActive(true);
    m_tree = std::make_unique<om::gallery::FolderTree>(m_folder.path());
    m_engine = std::make_unique<QQmlApplicationEngine>();
    om::gallery::prepareEngine(m_engine.get(), m_tree.get());
    m_window = openGalleryWindow(m_engine.get());
    QVERIFY(m_window);
}

void TestAccess::cleanupTestCase()
{
    m_engine.reset();
    m_tree.reset();
    QCOMPARE(support::leftovers(), QString());
}

void TestAccess::addPages()
{
    QTest::addColumn<QString>("page");
    const QVariantList pages = m_window->property("allPages").toList();
    for (const QVariant &page : pages) {
        const QString name = page.toMap().value("name").toString();
        QTest::newRow(qPrintable(name)) << name;
    }
}

void TestAccess::open(const QString &page)
{
    m_window->setProperty("currentPage", page);
    QVERIFY(!m_window->property("pageBroken").toBool());
    QVERIFY(!m_window->grabWindow().isNull());
    // Every demo shows its QML as well.
    for (QQuickItem *demo : support::itemsOf(m_window->contentItem(), "Demo")) {
        demo->setProperty("codeShown", true);
    }
    QVERIFY(!m_window->grabWindow().isNull());
}

QVector<QQuickItem *> TestAccess::stops()
{
    QVector<QQuickItem *> found;
    m_window->contentItem()->forceActiveFocus();
    for (int i = 0; i < 600; ++i) {
        QTest::keyClick(m_window, Qt::Key_Tab);
        QCoreApplication::processEvents();
        QQuickItem *item = m_window->activeFocusItem();
        if (found.contains(item)) {
            break;
        }
        found.append(item);
    }
    return found;
}

void TestAccess::everythingHasAName_data()
{
    addPages();
}

void TestAccess::everythingHasAName()
{
    QFETCH(QString, page);
    open(page);
    const QVector<Node> nodes = nodesOf(m_window);
    QVERIFY(nodes.size() > 30);
    QStringList nameless;
    for (const Node &node : nodes) {
        if (node.interface->text(QAccessible::Name).trimmed().isEmpty()) {
            nameless.append(node.path);
        }
    }
    QVERIFY2(nameless.isEmpty(), qPrintable(list(nameless)));
}

void TestAccess::everyControlIsReached_data()
{
    addPages();
}

void TestAccess::everyControlIsReached()
{
    QFETCH(QString, page);
    open(page);
    const QVector<QQuickItem *> reached = stops();
    QStringList order;
    for (QQuickItem *stop : reached) {
        order.append(stop->metaObject()->className());
    }
    QVERIFY2(reached.size() > 5, qPrintable(order.join(' ')));
    QStringList missed;
    const QVector<Node> nodes = nodesOf(m_window);
    for (const Node &node : nodes) {
        // Typing with the keys of a screen is for those who have no others; a key that took the
        // focus would have nobody to type to.
        if (!isControl(node.interface->role()) || node.path.contains("On-screen keyboard")) {
            continue;
        }
        auto *item = qobject_cast<QQuickItem *>(node.interface->object());
        QVERIFY2(item, qPrintable(node.path));
        if (!item->isEnabled()) {
            continue;
        }
        bool found = false;
        for (QQuickItem *stop : reached) {
            // The control itself or what it wraps; entries by the arrow keys of what they are in.
            found = found || isWithin(stop, item)
                || (isEntry(node.interface->role()) && isWithin(stop, listOf(node.interface)));
        }
        if (!found) {
            missed.append(node.path);
        }
    }
    QVERIFY2(missed.isEmpty(), qPrintable(list(missed)));
}

// A pointer's area that no control is around, or inside, is for those with a pointer only.
void TestAccess::whatTakesPressesIsKnown_data()
{
    addPages();
}

void TestAccess::whatTakesPressesIsKnown()
{
    QFETCH(QString, page);
    open(page);
    QSet<QObject *> known;
    const QVector<Node> nodes = nodesOf(m_window);
    for (const Node &node : nodes) {
        const QAccessible::Role role = node.interface->role();
        if (isControl(role) || role == QAccessible::Graphic || role == QAccessible::Dialog
            || role == QAccessible::List || role == QAccessible::PopupMenu
            || role == QAccessible::Tree) {
            known.insert(node.interface->object());
        }
    }
    QStringList unknown;
    const auto areas = support::itemsOf(m_window->contentItem(), "QQuickMouseArea");
    for (QQuickItem *area : areas) {
        const auto buttons = Qt::MouseButtons(area->property("acceptedButtons").toInt());
        if (!area->isVisible() || !area->isEnabled() || !area->property("enabled").toBool()
            || !(buttons & (Qt::LeftButton | Qt::RightButton))) {
            continue;
        }
        bool found = false;
        for (QQuickItem *around = area; around && !found; around = around->parentItem()) {
            found = known.contains(around);
        }
        // The page's own takes the focus out of what is left.
        QQuickItem *around = area->parentItem() ? area->parentItem()->parentItem() : nullptr;
        found = found || (around && around->property("summary").isValid());
        // One that has a control beside it belongs to that one.
        if (!found && area->parentItem()) {
            const QList<QQuickItem *> beside = area->parentItem()->childItems();
            for (QQuickItem *item : beside) {
                found = found || known.contains(item);
            }
        }
        if (!found) {
            QString place;
            for (QQuickItem *up = area; up; up = up->parentItem()) {
                place.prepend(QString(" / ") + up->metaObject()->className());
            }
            unknown.append(place);
        }
    }
    QVERIFY2(unknown.isEmpty(), qPrintable(list(unknown)));
}

// Buttons of the kit and of Qt, entries of the sidebar, swatches.
void TestAccess::pressesOfAScreenReaderCount()
{
    open("borders");
    QCoreApplication::processEvents();
    const auto press = [this](const QString &name) {
        const QVector<Node> nodes = nodesOf(m_window);
        for (const Node &node : nodes) {
            if (node.interface->text(QAccessible::Name) == name
                && node.interface->role() != QAccessible::StaticText
                && node.interface->actionInterface()) {
                node.interface->actionInterface()->doAction(
                    QAccessibleActionInterface::pressAction());
                return true;
            }
        }
        return false;
    };
    QQuickItem *demo = support::itemsOf(m_window->contentItem(), "FrameDemo").value(0);
    QVERIFY(demo);
    auto *frame = qvariant_cast<QObject *>(demo->property("subject"));
    const QVariant before = frame->property("frameWidth");
    frame->setProperty("frameWidth", 17);
    QVERIFY(press("Reset Frame"));
    QCOMPARE(frame->property("frameWidth"), before);
    QVERIFY(press("#90c695"));
    QCOMPARE(frame->property("color").value<QColor>(), QColor("#90c695"));
    QVERIFY(press("Popups and menus"));
    QCOMPARE(m_window->property("currentPage").toString(), QString("popups"));
}

/// Parts of the kit look on their page as if they had the focus, with and without it.
static bool posesAsFocused(QQuickItem *item)
{
    while (item && item->property("pose") != QLatin1String("focus")) {
        item = item->parentItem();
    }
    return item;
}

void TestAccess::focusIsSeen_data()
{
    addPages();
}

// Wherever Tab goes, something of the window looks other than without the focus.
void TestAccess::focusIsSeen()
{
    QFETCH(QString, page);
    m_window->setProperty("currentPage", page);
    QVERIFY(!m_window->grabWindow().isNull());
    QStringList unseen;
    const QVector<QQuickItem *> reached = stops();
    for (QQuickItem *item : reached) {
        if (posesAsFocused(item)) {
            continue;
        }
        item->forceActiveFocus(Qt::TabFocusReason);
        const QImage with = m_window->grabWindow();
        // From every scope around it, or the next one out would have it.
        for (QQuickItem *around = m_window->activeFocusItem(); around;
             around = around->parentItem()) {
            around->setFocus(false);
        }
        if (m_window->grabWindow() == with) {
            unseen.append(item->metaObject()->className());
        }
    }
    QVERIFY2(unseen.isEmpty(), qPrintable(list(unseen)));
}

QTEST_MAIN(TestAccess)
#include "tst_access.moc"
