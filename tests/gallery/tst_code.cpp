// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "gallery/FolderTree.h"
#include "gallery/GalleryEngine.h"
#include "gallery/Markdown.h"
#include "gallery/QmlHighlighter.h"
#include "gallery/Reference.h"
#include "tests/gallery/GalleryWindow.h"
#include "tests/support/Items.h"
#include "tests/support/Leftovers.h"

#include <QClipboard>
#include <QFile>
#include <QGuiApplication>
#include <QMetaProperty>
#include <QQmlApplicationEngine>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlListReference>
#include <QQmlProperty>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTemporaryDir>
#include <QTest>
#include <QTextDocument>
#include <QTextLayout>

#include <memory>

/// The QML that each demo hands out, its page of the reference, what is to be tried, and the search
/// for all of them.
class TestCode : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();
    void cleanupTestCase();
    void copiedQmlMakesWhatIsOnTheStage_data();
    void copiedQmlMakesWhatIsOnTheStage();
    void codeIsShownAndCopied();
    void codeAndReferenceFitTheirPanes();
    void linksOfTheReferenceLead();
    void resetPutsBack_data();
    void resetPutsBack();
    void stepsAreFew_data();
    void stepsAreFew();
    void stepIsTicked();

    void everyTypeHasAPageAndAnExample();
    void markdown_data();
    void markdown();
    void highlighting_data();
    void highlighting();

    void finds_data();
    void finds();
    void searchLeads();
    void searchGivesUp();

private:
    void addTypes();
    QQuickItem *open(const QString &type);
    QQuickItem *withText(const QString &text) const;
    void click(QQuickItem *item);
    void type(const char *text);

    QTemporaryDir m_folder;
    std::unique_ptr<om::gallery::FolderTree> m_tree;
    std::unique_ptr<QQmlApplicationEngine> m_engine;
    QQuickWindow *m_window = nullptr;
};

namespace {

// Another value of the same kind that every property of that kind takes.
QVariant otherThan(const QVariant &value)
{
    switch (int(value.type())) {
    case QMetaType::Bool:
        return !value.toBool();
    case QMetaType::Int:
    case QMetaType::Double:
    case QMetaType::Float:
        return value.toDouble() == 24 ? 20 : 24;
    case QMetaType::QColor:
        return QColor("#C97B63");
    case QMetaType::QPointF:
        return QPointF(7, 9);
    case QMetaType::QUrl:
        return QUrl("https://example.org/other");
    case QMetaType::QStringList:
        return QStringList{"one", "two"};
    default:
        return QString("other \"quoted\"");
    }
}

QString shown(const QVariant &value)
{
    if (value.type() == QVariant::StringList) {
        return value.toStringList().join(", ");
    }
    if (value.type() == QVariant::PointF) {
        return QString("%1, %2").arg(value.toPointF().x()).arg(value.toPointF().y());
    }
    return value.toString();
}

// The first object of a QML type or of a C++ class below `object`, itself included.
QObject *objectOf(QObject *object, const QString &type)
{
    const QString name = QString::fromLatin1(object->metaObject()->className());
    if (name == type || name.startsWith(type + "_QML") || name.endsWith("::" + type)
        || name == "QQuick" + type || name.contains("::" + type + "_QML")) {
        return object;
    }
    QObjectList children = object->children();
    if (auto *item = qobject_cast<QQuickItem *>(object)) {
        for (QQuickItem *child : item->childItems()) {
            if (!children.contains(child)) {
                children.append(child);
            }
        }
    }
    for (QObject *child : qAsConst(children)) {
        if (QObject *found = objectOf(child, type)) {
            return found;
        }
    }
    return nullptr;
}

} // namespace

void TestCode::initTestCase()
{
    QVERIFY(m_folder.isValid());
    // The platform makes what serves its clipboard with the first use, for good.
    QGuiApplication::clipboard()->clear();
    QFile file(m_folder.filePath("notes.txt"));
    QVERIFY(file.open(QFile::WriteOnly));
    m_tree = std::make_unique<om::gallery::FolderTree>(m_folder.path());
    m_engine = std::make_unique<QQmlApplicationEngine>();
    om::gallery::prepareEngine(m_engine.get(), m_tree.get());
    m_window = openGalleryWindow(m_engine.get());
    QVERIFY(m_window);
}

void TestCode::cleanup()
{
    QGuiApplication::clipboard()->clear();
}

void TestCode::cleanupTestCase()
{
    m_engine.reset();
    m_tree.reset();
    QCOMPARE(support::leftovers(), QString());
}

void TestCode::addTypes()
{
    QTest::addColumn<QString>("type");
    const QVariantList pages = m_window->property("pages").toList();
    for (const QVariant &page : pages) {
        const QStringList types = page.toMap().value("types").toStringList();
        for (const QString &type : types) {
            QTest::newRow(qPrintable(type)) << type;
        }
    }
}

QQuickItem *TestCode::open(const QString &type)
{
    // The page is made anew for each test.
    m_window->setProperty("currentPage", type == "UI" || type == "Control" ? "tree" : "theme");
    QMetaObject::invokeMethod(m_window, "showType", Q_ARG(QVariant, type));
    m_window->grabWindow();
    return support::itemsOf(m_window->contentItem(), qPrintable(type + "Demo")).value(0);
}

QQuickItem *TestCode::withText(const QString &text) const
{
    return support::itemWith(m_window->contentItem(), "text", text);
}

void TestCode::click(QQuickItem *item)
{
    QVERIFY(item);
    QTest::mouseClick(m_window, Qt::LeftButton, {},
                      item->mapToScene({item->width() / 2, item->height() / 2}).toPoint());
}

void TestCode::type(const char *text)
{
    for (const char *letter = text; *letter; ++letter) {
        QTest::keyClick(m_window, *letter);
    }
}

void TestCode::copiedQmlMakesWhatIsOnTheStage_data()
{
    addTypes();
}

// Every property that an editor writes gets another value; the copy has it.
void TestCode::copiedQmlMakesWhatIsOnTheStage()
{
    QFETCH(QString, type);
    QQuickItem *demo = open(type);
    QVERIFY(demo);
    auto *subject = qvariant_cast<QObject *>(demo->property("subject"));
    QStringList names;
    QVariant rows;
    QMetaObject::invokeMethod(demo, "rows", Q_RETURN_ARG(QVariant, rows));
    const QVariantList editors = rows.toList();
    const QStringList codeOnly = demo->property("codeValues").toMap().keys();
    for (const QVariant &row : editors) {
        auto *editor = qvariant_cast<QObject *>(row);
        const QString name = editor->property("property").toString();
        if (!editor->property("writes").toBool() || name.isEmpty()
            || qvariant_cast<QObject *>(editor->property("target")) != subject
            || codeOnly.contains(name) || name == "open" || name == "popupVisible") {
            continue;
        }
        QVERIFY2(QQmlProperty::write(subject, name, otherThan(QQmlProperty::read(subject, name))),
                 qPrintable(name));
        names.append(name);
    }

    QVariant code;
    QVERIFY(QMetaObject::invokeMethod(demo, "code", Q_RETURN_ARG(QVariant, code)));
    const QString qml = code.toString();
    QVERIFY(!qml.isEmpty());
    QVERIFY2(qml.startsWith("import "), qPrintable(qml.left(60)));
    QVERIFY(!qml.contains("SPDX"));

    QQmlEngine engine;
    QQmlComponent component(&engine);
    component.setData(qml.toUtf8(), QUrl());
    QVERIFY2(component.isReady(), qPrintable(component.errorString() + qml));
    std::unique_ptr<QObject> made(component.create());
    QVERIFY2(made, qPrintable(component.errorString() + qml));
    QQuickWindow window;
    auto *item = qobject_cast<QQuickItem *>(made.get());
    QVERIFY(item);
    item->setParentItem(window.contentItem());
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QVERIFY(!window.grabWindow().isNull());

    if (!names.isEmpty()) {
        QObject *object = objectOf(made.get(), demo->property("codeType").toString());
        // A popup has gone to the top of the window.
        if (!object) {
            object = objectOf(window.contentItem(), demo->property("codeType").toString());
        }
        QVERIFY2(object, qPrintable(qml));
        for (const QString &name : qAsConst(names)) {
            QVERIFY2(shown(QQmlProperty::read(object, name))
                         == shown(QQmlProperty::read(subject, name)),
                     qPrintable(QString("%1 is %2, not %3, in\n%4")
                                    .arg(name, shown(QQmlProperty::read(object, name)),
                                         shown(QQmlProperty::read(subject, name)), qml)));
        }
    }
    made.reset();
}

void TestCode::codeIsShownAndCopied()
{
    QQuickItem *demo = open("Frame");
    QVERIFY(demo);
    QQuickItem *frame = qvariant_cast<QQuickItem *>(demo->property("subject"));
    frame->setProperty("frameWidth", 11);
    click(support::itemWith(demo, "text", "QML"));
    QTRY_VERIFY(demo->property("codeShown").toBool());
    QVERIFY(!m_window->grabWindow().isNull());
    QQuickItem *copy = support::itemWith(demo, "text", "Copy");
    QVERIFY(copy);
    m_window->resize(1240, 1000);
    copy->forceActiveFocus(Qt::TabFocusReason);
    QVERIFY(!m_window->grabWindow().isNull());
    click(copy);
    const QString copied = QGuiApplication::clipboard()->text();
    QVERIFY2(copied.contains("frameWidth: 11\n"), qPrintable(copied));
    QVERIFY(copied.split('\n').size() <= 40);
    // It follows what is changed, and says when it is a copy.
    QTRY_VERIFY(support::itemWith(demo, "text", "Copied"));
    frame->setProperty("frameWidth", 12);
    QTRY_VERIFY(support::itemWith(demo, "text", "Copy"));
    m_window->resize(1240, 820);
}

void TestCode::codeAndReferenceFitTheirPanes()
{
    QQuickItem *demo = open("QRCode");
    QVERIFY(demo);
    click(support::itemWith(demo, "text", "QML"));
    QTRY_COMPARE(support::itemsOf(demo, "TextPane").size(), 2);
    const auto panes = support::itemsOf(demo, "TextPane");
    for (QQuickItem *pane : panes) {
        QTRY_VERIFY(pane->property("contentHeight").toReal() > 100);
        QVERIFY2(pane->property("contentWidth").toReal() <= pane->width(),
                 qPrintable(pane->property("name").toString()));
        // No heading is larger than the page's own.
        auto *edit = pane->property("edit").value<QQuickItem *>();
        auto *document = qvariant_cast<QQuickTextDocument *>(edit->property("textDocument"));
        for (QTextBlock block = document->textDocument()->firstBlock(); block.isValid();
             block = block.next()) {
            const auto formats = block.textFormats();
            for (const QTextLayout::FormatRange &range : formats) {
                QVERIFY2(range.format.font().pixelSize() <= 18,
                         qPrintable(block.text() + ' '
                                    + QString::number(range.format.font().pixelSize())));
            }
        }
    }
}

void TestCode::linksOfTheReferenceLead()
{
    QQuickItem *demo = open("Popup");
    demo->setProperty("codeShown", true);
    QMetaObject::invokeMethod(demo, "linked", Q_ARG(QString, "PopupAnchorItem.md#top"));
    QVERIFY(!m_window->grabWindow().isNull());
    QCOMPARE(m_window->property("currentPage").toString(), QString("popups"));
    QMetaObject::invokeMethod(demo, "linked", Q_ARG(QString, "../renderers.md"));
    QCOMPARE(m_window->property("currentPage").toString(), QString("popups"));
    QMetaObject::invokeMethod(demo, "linked", Q_ARG(QString, "TreeView.md"));
    QCOMPARE(m_window->property("currentPage").toString(), QString("tree"));
}

void TestCode::resetPutsBack_data()
{
    addTypes();
}

void TestCode::resetPutsBack()
{
    QFETCH(QString, type);
    QQuickItem *demo = open(type);
    QVERIFY(demo);
    QVariant before;
    QMetaObject::invokeMethod(demo, "values", Q_RETURN_ARG(QVariant, before));
    QCoreApplication::processEvents();
    auto *subject = qvariant_cast<QObject *>(demo->property("subject"));
    const QVariantMap values = before.toMap();
    const QStringList extra = demo->property("codeValues").toMap().keys();
    QVariant rows;
    QMetaObject::invokeMethod(demo, "rows", Q_RETURN_ARG(QVariant, rows));
    for (auto value = values.begin(); subject && value != values.end(); ++value) {
        if (!extra.contains(value.key()) && value.key() != "open") {
            QQmlProperty::write(subject, value.key(),
                                otherThan(QQmlProperty::read(subject, value.key())));
        }
    }
    const QList<QObject *> steps = [demo] {
        QList<QObject *> list;
        const QQmlListReference reference(demo, "steps");
        for (int i = 0; i < reference.count(); ++i) {
            list.append(reference.at(i));
        }
        return list;
    }();
    for (QObject *step : steps) {
        step->setProperty("done", true);
    }
    QMetaObject::invokeMethod(demo, "reset");
    QVariant after;
    QMetaObject::invokeMethod(demo, "values", Q_RETURN_ARG(QVariant, after));
    for (auto value = values.begin(); value != values.end(); ++value) {
        if (!extra.contains(value.key())) {
            QVERIFY2(shown(after.toMap().value(value.key())) == shown(value.value()),
                     qPrintable(value.key() + ": " + shown(after.toMap().value(value.key()))
                                + " instead of " + shown(value.value())));
        }
    }
    for (QObject *step : steps) {
        QVERIFY(!step->property("done").toBool());
    }
}

void TestCode::stepsAreFew_data()
{
    addTypes();
}

void TestCode::stepsAreFew()
{
    QFETCH(QString, type);
    QQuickItem *demo = open(type);
    QVERIFY(demo);
    const QQmlListReference steps(demo, "steps");
    QVERIFY2(steps.count() == 2 || steps.count() == 3, qPrintable(QString::number(steps.count())));
    for (int i = 0; i < steps.count(); ++i) {
        const QObject *step = steps.at(i);
        QVERIFY(!step->property("text").toString().isEmpty());
        // Nothing is done before anybody has done anything.
        QVERIFY2(!step->property("done").toBool(), qPrintable(step->property("text").toString()));
    }
}

void TestCode::stepIsTicked()
{
    QQuickItem *demo = open("Frame");
    const QQmlListReference steps(demo, "steps");
    auto *frame = qvariant_cast<QObject *>(demo->property("subject"));
    frame->setProperty("opacity", 0.5);
    QVERIFY(steps.at(2)->property("done").toBool());
    // And stays so.
    frame->setProperty("opacity", 1);
    QVERIFY(steps.at(2)->property("done").toBool());
    QVERIFY(!steps.at(0)->property("done").toBool());
}

void TestCode::everyTypeHasAPageAndAnExample()
{
    const om::gallery::Reference reference;
    const QVariantList pages = m_window->property("pages").toList();
    int types = 0;
    for (const QVariant &page : pages) {
        const QStringList names = page.toMap().value("types").toStringList();
        for (const QString &type : names) {
            QVERIFY2(reference.types().contains(type), qPrintable(type));
            const QString html = reference.page(type);
            QVERIFY2(html.contains("<h1>" + type), qPrintable(type));
            // What is for other readers of the page is no text.
            QVERIFY2(!html.contains("&lt;img") && !html.contains("&lt;!--"), qPrintable(type));
            const QString example = reference.example(type);
            QVERIFY2(example.contains(type), qPrintable(type));
            // The marks by which pages take a part of it are no line to hand out.
            QVERIFY2(!example.contains("//!"), qPrintable(type));
            ++types;
        }
    }
    QVERIFY(types > 25);
    QCOMPARE(reference.page("Nothing"), QString());
    QCOMPARE(reference.example("Nothing"), QString());
}

void TestCode::markdown_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("html");
    QTest::newRow("nothing") << ""
                             << "";
    QTest::newRow("a heading") << "## One & two"
                               << "<h2>One &amp; two</h2>";
    QTest::newRow("a paragraph of two lines") << "one\ntwo\n\nthree"
                                              << "<p>one two</p><p>three</p>";
    QTest::newRow("marks within a line")
        << "a `b < c` **d** *e* [f](G.md)"
        << "<p>a <code>b &lt; c</code> <b>d</b> <i>e</i> <a href=\"G.md\">f</a></p>";
    QTest::newRow("marks mean nothing in code") << "`a **b** [c](d)`"
                                                << "<p><code>a **b** [c](d)</code></p>";
    QTest::newRow("a list") << "- one\n- two"
                            << "<ul><li>one</li><li>two</li></ul>";
    QTest::newRow("a numbered list") << "1. one\n2. two"
                                     << "<ol><li>one</li><li>two</li></ol>";
    QTest::newRow("a list behind a paragraph") << "one:\n- two"
                                               << "<p>one:</p><ul><li>two</li></ul>";
    QTest::newRow("code") << "```qml\nItem {\n}\n```\nend"
                          << "<pre>Item {\n}</pre><p>end</p>";
    QTest::newRow("code without an end") << "```\na"
                                         << "<pre>a</pre>";
    QTest::newRow("a table")
        << "| a | b |\n|---|---|\n| `c\\|d` | |"
        << "<table width=\"100%\" cellspacing=\"0\" cellpadding=\"4\"><tr><td class=\"head\">a</td>"
           "<td class=\"head\">b</td></tr><tr><td class=\"cell\"><code>c|d</code></td>"
           "<td class=\"cell\"></td></tr></table>";
}

void TestCode::markdown()
{
    QFETCH(QString, source);
    QFETCH(QString, html);
    QCOMPARE(om::gallery::htmlOf(source), html);
}

void TestCode::highlighting_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("kinds"); // a letter for each character
    QTest::newRow("a type") << "Frame {"
                            << "ttttt  ";
    QTest::newRow("a number") << "x: 12.5"
                              << "n  vvvv";
    QTest::newRow("a string with a type in it") << "a: \"Item\""
                                                << "n  vvvvvv";
    QTest::newRow("a string with a quote in it") << "a: \"\\\"B\""
                                                 << "n  vvvvv";
    QTest::newRow("a comment") << "x // Item 1"
                               << "  ccccccccc";
    QTest::newRow("a handler") << "Keys.onUp: go()"
                               << "tttt nnnn      ";
    QTest::newRow("a number in a name") << "a1: b2"
                                        << "nn    ";
    QTest::newRow("a module") << "import ombrel.Controls 1.0 // A"
                              << "nnnnnnnnnnnnnnnnnnnnnnnnnn cccc";
    QTest::newRow("a folder") << "import \"../Kit\" as Kit"
                              << "nnnnnn vvvvvvvv    ttt";
}

void TestCode::highlighting()
{
    QFETCH(QString, line);
    QFETCH(QString, kinds);
    // Through a text item, as the gallery does.
    QQmlComponent component(m_engine.get());
    component.setData("import QtQuick 2.12\nimport ombrel.gallery 1.0\nTextEdit { id: edit; "
                      "property QmlHighlighter highlighter: QmlHighlighter { textDocument: "
                      "edit.textDocument; typeColor: \"#000001\"; nameColor: \"#000002\"; "
                      "valueColor: \"#000003\"; commentColor: \"#000004\" } }",
                      QUrl());
    std::unique_ptr<QObject> edit(component.create());
    QVERIFY2(edit, qPrintable(component.errorString()));
    edit->setProperty("text", line);
    auto *document =
        qvariant_cast<QQuickTextDocument *>(edit->property("textDocument"))->textDocument();
    QCoreApplication::processEvents();
    QString found(line.size(), ' ');
    const auto formats = document->firstBlock().layout()->formats();
    for (const QTextLayout::FormatRange &range : formats) {
        const int kind = range.format.foreground().color().blue();
        for (int i = range.start; i < range.start + range.length; ++i) {
            found[i] = " tnvc"[kind];
        }
    }
    QCOMPARE(found, kinds);
}

void TestCode::finds_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("type");
    QTest::newRow("a type") << "FpsCounter"
                            << "type"
                            << "FpsCounter"
                            << "FpsCounter";
    QTest::newRow("part of a type, in small letters") << "counter"
                                                      << "type"
                                                      << "FpsCounter"
                                                      << "FpsCounter";
    QTest::newRow("a property") << "persistent"
                                << "property"
                                << "persistent"
                                << "Popup";
    QTest::newRow("a signal") << "editRequested"
                              << "signal"
                              << "editRequested"
                              << "TreeView";
    QTest::newRow("a change signal") << "frameWidthChanged"
                                     << "signal"
                                     << "frameWidthChanged"
                                     << "Frame";
    QTest::newRow("a method") << "collapseIndex"
                              << "method"
                              << "collapseIndex"
                              << "TreeView";
    QTest::newRow("what to try") << "triangle"
                                 << "try"
                                 << ""
                                 << "TreeView";
    QTest::newRow("spaces around it") << "  QRCode "
                                      << "type"
                                      << "QRCode"
                                      << "QRCode";
}

void TestCode::finds()
{
    QFETCH(QString, text);
    QFETCH(QString, kind);
    QFETCH(QString, name);
    QFETCH(QString, type);
    auto *reference = qvariant_cast<om::gallery::Reference *>(
        m_engine->rootContext()->contextProperty("reference"));
    const QVariantMap first = reference->find(text).value(0).toMap();
    QCOMPARE(first.value("kind").toString(), kind);
    if (!name.isEmpty()) {
        QCOMPARE(first.value("name").toString(), name);
    }
    QCOMPARE(first.value("type").toString(), type);
    QVERIFY(reference->find("").isEmpty());
    QVERIFY(reference->find("no such thing").isEmpty());
    QCOMPARE(reference->find("e", 5).size(), 5);
}

void TestCode::searchLeads()
{
    open("Frame");
    for (const int key : {Qt::Key_F, Qt::Key_K}) {
        m_window->setProperty("currentPage", "theme");
        QTest::keyClick(m_window, Qt::Key(key), Qt::ControlModifier);
        type("fps");
        QTRY_VERIFY(withText("type"));
        QTest::keyClick(m_window, Qt::Key_Return);
        QTRY_COMPARE(m_window->property("currentPage").toString(), QString("input"));
        QVERIFY(!withText("Nothing has that in its name"));
    }
    // Down to the second, by pointer as well.
    QTest::keyClick(m_window, Qt::Key_K, Qt::ControlModifier);
    type("colour picker");
    QTRY_VERIFY(withText("page"));
    click(withText("page"));
    QTRY_COMPARE(m_window->property("currentPage").toString(), QString("colorpicker"));
}

void TestCode::searchGivesUp()
{
    m_window->setProperty("currentPage", "theme");
    QTest::keyClick(m_window, Qt::Key_K, Qt::ControlModifier);
    type("zzz");
    QTRY_VERIFY(withText("Nothing has that in its name"));
    QTest::keyClick(m_window, Qt::Key_Return);
    QTest::keyClick(m_window, Qt::Key_Escape);
    QTRY_VERIFY(!withText("Nothing has that in its name"));
    QCOMPARE(m_window->property("currentPage").toString(), QString("theme"));
    // The keys are the page's again.
    QVERIFY(m_window->activeFocusItem()->property("summary").isValid());
}

QTEST_MAIN(TestCode)
#include "tst_code.moc"
