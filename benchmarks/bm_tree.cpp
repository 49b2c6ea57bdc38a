// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "benchmarks/support/Instructions.h"
#include "benchmarks/support/Measures.h"
#include "benchmarks/support/SideBySide.h"

#include <OmbrelDataCore/Document.h>

#include <QAbstractListModel>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQmlListReference>
#include <QQuickItem>
#include <QQuickRenderControl>
#include <QQuickWindow>
#include <QStandardItemModel>

#include <cstdio>
#include <ctime>
#include <map>
#include <memory>
#include <string>
#include <vector>

using om::data::Document;

namespace {

const char *const treeQml = R"(
import QtQuick 2.12
import ombrel.Controls 1.0
TreeView {
    width: 300
    childProperty: "children"
    rootCanCollapse: true
    delegate: Text { height: 24; text: document.name }
    backgroundDelegate: Rectangle { color: "white" }
}
)";

// The same row by hand: the items, properties, bindings and handlers of the tree's row with its
// default handle and the delegates above, all in one place and stacked by a Column.
const char *const columnQml = R"(
import QtQuick 2.12
Column {
    id: column
    width: 300
    property alias rows: repeater.model
    property int indent: 20
    property int activeIndex: -1
    property bool rootCanCollapse: true
    property bool rootCollapsed: false
    Repeater {
        id: repeater
        Item {
            id: row
            readonly property int effectiveLevel: column.rootCanCollapse ? level : level - 1
            readonly property int indent: Math.max(0, effectiveLevel * column.indent)
            readonly property bool isRoot: level === 0
            readonly property bool childrenCollapsed: !isRoot && column.rootCollapsed
            readonly property int displayHeight: text.height
            readonly property bool collapsable: isRoot && !column.rootCanCollapse ? false : hasChildren
            readonly property int markerIndent: isRoot && !column.rootCanCollapse ? 0 : marker.width
            readonly property bool hasChildren: childCount !== 0
            readonly property bool collapsed: isRoot && column.rootCollapsed
            width: parent ? parent.width : 100
            height: 0
            opacity: 0
            clip: true
            states: State {
                name: "displayed"
                when: !row.childrenCollapsed
                PropertyChanges { target: row; height: row.displayHeight; opacity: 1 }
            }
            Rectangle { anchors.fill: parent; z: -1; color: "white" }
            Text {
                id: text
                anchors.right: parent.right
                width: row.width - row.indent - row.markerIndent
                height: 24
                text: name
            }
            MouseArea {
                id: marker
                x: row.indent
                anchors.verticalCenter: parent.verticalCenter
                width: childrenRect.width
                height: childrenRect.height
                enabled: row.collapsable
                visible: row.collapsable
                acceptedButtons: Qt.LeftButton
                onClicked: column.rootCollapsed = !column.rootCollapsed
                Item {
                    width: 16
                    height: 16
                    Image {
                        anchors.centerIn: parent
                        source: "qrc:/controls/images/collapse-indicator.svg"
                        rotation: row.collapsed ? 0 : 45
                    }
                }
            }
            MouseArea {
                anchors.fill: parent
                acceptedButtons: Qt.LeftButton
                onPressed: {
                    column.activeIndex = index;
                    mouse.accepted = false;
                    row.forceActiveFocus();
                }
            }
        }
    }
}
)";

/// The row by hand with a background, content and handle from outside, as the tree's are: the
/// difference to the first row by hand is the cost of parts that the row's file does not declare.
QByteArray loadersQml()
{
    QByteArray qml(columnQml);
    const auto replace = [&qml](const QByteArray &before, const QByteArray &after) {
        if (qml.count(before) != 1) {
            qFatal("The row by hand has changed: %s", before.constData());
        }
        qml.replace(before, after);
    };
    replace("    Repeater {", R"(
    property Component background: Rectangle { color: "white" }
    property Component content: Text { height: 24; text: parent.name }
    property Component handle: Item {
        width: 16
        height: 16
        Image {
            anchors.centerIn: parent
            source: "qrc:/controls/images/collapse-indicator.svg"
            rotation: parent.parent.collapsed ? 0 : 45
        }
    }
    Repeater {)");
    replace(R"(Rectangle { anchors.fill: parent; z: -1; color: "white" })",
            "Loader { anchors.fill: parent; z: -1; sourceComponent: column.background }");
    replace(R"(            Text {
                id: text)",
            R"(            Loader {
                id: text
                property string name: model.name)");
    replace(R"(                height: 24
                text: name
)",
            "                sourceComponent: column.content\n");
    replace(R"(                Item {
                    width: 16
                    height: 16
                    Image {
                        anchors.centerIn: parent
                        source: "qrc:/controls/images/collapse-indicator.svg"
                        rotation: row.collapsed ? 0 : 45
                    }
                })",
            R"(                Loader {
                    property bool collapsed: row.collapsed
                    sourceComponent: column.handle
                })");
    return qml;
}

const char *const virtualQml = R"(
import QtQuick 2.12
import QtQuick.Controls 1.4
TreeView {
    width: 300; height: 600
    TableViewColumn { role: "display"; title: "Name"; width: 280 }
}
)";

/// The model of the rows by hand.
class RowModel : public QAbstractListModel
{
public:
    struct Row
    {
        QString name;
        int level;
        int childCount;
    };

    explicit RowModel(std::vector<Row> rows)
        : m_rows(std::move(rows))
    {
    }

    void reload()
    {
        beginResetModel();
        endResetModel();
    }
    /// All rows anew, as in the tree.
    void insert(std::size_t at, const Row &row)
    {
        beginResetModel();
        m_rows.insert(m_rows.begin() + std::ptrdiff_t(at), row);
        endResetModel();
    }

    int rowCount(const QModelIndex & = {}) const override { return int(m_rows.size()); }
    QVariant data(const QModelIndex &index, int role) const override
    {
        const Row &row = m_rows.at(std::size_t(index.row()));
        switch (role) {
        case NameRole:
            return row.name;
        case LevelRole:
            return row.level;
        case ChildCountRole:
            return row.childCount;
        }
        return {};
    }
    QHash<int, QByteArray> roleNames() const override
    {
        return {{NameRole, "name"}, {LevelRole, "level"}, {ChildCountRole, "childCount"}};
    }

private:
    enum Role {
        NameRole = Qt::UserRole,
        LevelRole,
        ChildCountRole
    };

    std::vector<Row> m_rows;
};

double processorMilliseconds(const std::function<void()> &body)
{
    timespec before{};
    timespec after{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &before);
    body();
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &after);
    return double(after.tv_sec - before.tv_sec) * 1e3
        + double(after.tv_nsec - before.tv_nsec) / 1e6;
}

void rebuildNow(QObject *tree)
{
    QCoreApplication::sendPostedEvents(tree, QEvent::MetaCall);
}

void deleteNow()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

/// A window without a screen, on which thousands of rows would be rendered for minutes.
struct Stage
{
    QQuickRenderControl control;
    QQuickWindow window{&control};

    /// Polishes items, as a frame would have done: destroying an item that waits for its polish
    /// searches the window's list of those.
    void polish() { control.polishItems(); }
};

Document *child(Document *parent)
{
    auto *document = new Document(parent);
    document->setDocumentId(QString::number(quintptr(document)));
    document->setName(QStringLiteral("document"));
    return document;
}

/// One root with count - 1 documents below it: all at level 1, eight below each, or chains of 100.
std::unique_ptr<Document> forest(const std::string &shape, int count,
                                 std::vector<RowModel::Row> *rows)
{
    auto root = std::make_unique<Document>();
    root->setDocumentId(QStringLiteral("root"));
    root->setName(QStringLiteral("document"));
    std::vector<std::pair<Document *, int>> made{{root.get(), 0}};
    std::vector<std::vector<Document *>> childrenOf(1);
    for (int i = 1; i < count; ++i) {
        std::size_t above = 0;
        if (shape == "bushy") {
            above = std::size_t(i - 1) / 8;
        } else if (shape == "deep") {
            above = i % 100 == 1 ? 0 : std::size_t(i) - 1;
        }
        auto *document = child(made[above].first);
        childrenOf[above].push_back(document);
        childrenOf.emplace_back();
        made.emplace_back(document, made[above].second + 1);
    }
    for (std::size_t i = 0; i < made.size(); ++i) {
        for (Document *document : childrenOf[i]) {
            made[i].first->appendChild(document);
        }
        rows->push_back({QStringLiteral("document"), made[i].second, int(childrenOf[i].size())});
    }
    return root;
}

QQuickItem *create(QQmlEngine &engine, const char *qml, QQuickItem *parent)
{
    QQmlComponent component(&engine);
    component.setData(qml, QUrl());
    auto *item = qobject_cast<QQuickItem *>(component.create());
    if (!item) {
        std::printf("%s\n", qPrintable(component.errorString()));
        return nullptr;
    }
    item->setParentItem(parent);
    return item;
}

using Times = std::map<std::string, std::vector<double>>;

void measureTree(QQmlEngine &engine, Stage &stage, Document *root, int count, Times *times)
{
    std::unique_ptr<QQuickItem> tree(create(engine, treeQml, stage.window.contentItem()));
    const auto take = [times, &stage](const char *name, const std::function<void()> &body) {
        stage.polish();
        (*times)[name].push_back(processorMilliseconds(body));
    };
    const double before = benchmark::heap();
    take("build", [&] {
        QQmlListReference(tree.get(), "rootDocuments").append(root);
        rebuildNow(tree.get());
    });
    (*times)["memory"].push_back((benchmark::heap() - before) / count);
    if (qFuzzyCompare(tree->implicitHeight(), 24.0 * count) == false) {
        qFatal("The rows are not there");
    }
    take("width", [&] { tree->setWidth(tree->width() + 10); });
    take("collapse",
         [&] { QMetaObject::invokeMethod(tree.get(), "collapseIndex", Q_ARG(int, 0)); });
    if (qFuzzyCompare(tree->implicitHeight(), 24.0) == false) {
        qFatal("The rows are not hidden");
    }
    take("expand", [&] { QMetaObject::invokeMethod(tree.get(), "expandIndex", Q_ARG(int, 0)); });
    take("reload", [&] {
        QMetaObject::invokeMethod(tree.get(), "rootDocumentsChanged");
        rebuildNow(tree.get());
    });
    take("deletion", [] { deleteNow(); });
    take("insertion", [&] {
        root->insertChild(0, child(root));
        rebuildNow(tree.get());
        deleteNow();
    });
    delete root->childDocuments().constFirst();
}

void measureColumn(QQmlEngine &engine, Stage &stage, const std::vector<RowModel::Row> &rows,
                   Times *times, const char *qml = columnQml)
{
    RowModel model(rows);
    std::unique_ptr<QQuickItem> column(create(engine, qml, stage.window.contentItem()));
    const auto take = [times, &stage, &column](const char *name,
                                               const std::function<void()> &body) {
        stage.polish();
        (*times)[name].push_back(processorMilliseconds([&] {
            body();
            QMetaObject::invokeMethod(column.get(), "forceLayout");
        }));
    };
    const double before = benchmark::heap();
    take("build", [&] { column->setProperty("rows", QVariant::fromValue<QObject *>(&model)); });
    (*times)["memory"].push_back((benchmark::heap() - before) / double(rows.size()));
    if (qFuzzyCompare(column->implicitHeight(), 24.0 * double(rows.size())) == false) {
        qFatal("The rows by hand are not there");
    }
    take("width", [&] { column->setWidth(column->width() + 10); });
    take("collapse", [&] { column->setProperty("rootCollapsed", true); });
    if (qFuzzyCompare(column->implicitHeight(), 24.0) == false) {
        qFatal("The rows by hand are not hidden");
    }
    take("expand", [&] { column->setProperty("rootCollapsed", false); });
    take("reload", [&] { model.reload(); });
    take("deletion", [] { deleteNow(); });
    take("insertion", [&] {
        model.insert(1, {QStringLiteral("document"), 1, 0});
        deleteNow();
    });
}

/// The peer that makes only the rows to be seen; for the table.
void measureVirtual(QQmlEngine &engine, Stage &stage, int count, Times *times)
{
    std::unique_ptr<QQuickItem> tree(create(engine, virtualQml, stage.window.contentItem()));
    if (!tree) {
        return;
    }
    QStandardItemModel model;
    auto *root = new QStandardItem(QStringLiteral("document"));
    for (int i = 1; i < count; ++i) {
        root->appendRow(new QStandardItem(QStringLiteral("document")));
    }
    model.appendRow(root);
    const QModelIndex top = model.index(0, 0);
    const auto take = [times](const char *name, const std::function<void()> &body) {
        (*times)[name].push_back(processorMilliseconds(body));
    };
    take("build", [&] {
        tree->setProperty("model", QVariant::fromValue<QObject *>(&model));
        QMetaObject::invokeMethod(tree.get(), "expand", Q_ARG(QVariant, QVariant::fromValue(top)));
        QCoreApplication::processEvents();
    });
    take("width", [&] {
        tree->setWidth(tree->width() + 10);
        QCoreApplication::processEvents();
    });
    take("collapse", [&] {
        QMetaObject::invokeMethod(tree.get(), "collapse",
                                  Q_ARG(QVariant, QVariant::fromValue(top)));
        QCoreApplication::processEvents();
    });
    take("expand", [&] {
        QMetaObject::invokeMethod(tree.get(), "expand", Q_ARG(QVariant, QVariant::fromValue(top)));
        QCoreApplication::processEvents();
    });
}

void countInstructions(QQmlEngine &engine, const char *name, const std::function<void()> &body)
{
    engine.collectGarbage();
    deleteNow();
    benchmark::countInstructions(name, body);
}

const int countedRows = 400;
const int countedRoots = 10000;

/// The part that the benchmark counts by running itself under callgrind: making all rows again,
/// shown and hidden, and destroying many roots, each after one uncounted run.
void runCounted(QQmlEngine &engine, Stage &stage)
{
    std::vector<RowModel::Row> rows;
    const std::unique_ptr<Document> root = forest("flat", countedRows, &rows);
    {
        std::unique_ptr<QQuickItem> tree(create(engine, treeQml, stage.window.contentItem()));
        QQmlListReference(tree.get(), "rootDocuments").append(root.get());
        rebuildNow(tree.get());
        const auto again = [&tree] {
            deleteNow();
            QMetaObject::invokeMethod(tree.get(), "rootDocumentsChanged");
        };
        again();
        countInstructions(engine, "shown, ours", [&tree] { rebuildNow(tree.get()); });
        QMetaObject::invokeMethod(tree.get(), "collapseIndex", Q_ARG(int, 0));
        again();
        countInstructions(engine, "hidden, ours", [&tree] { rebuildNow(tree.get()); });
    }
    {
        RowModel model(rows);
        std::unique_ptr<QQuickItem> column(create(engine, columnQml, stage.window.contentItem()));
        const auto fill = [&column, &model] {
            column->setProperty("rows", QVariant::fromValue<QObject *>(&model));
            QMetaObject::invokeMethod(column.get(), "forceLayout");
        };
        const auto empty = [&column] {
            column->setProperty("rows", QVariant());
            deleteNow();
        };
        fill();
        empty();
        countInstructions(engine, "shown, theirs", fill);
        empty();
        column->setProperty("rootCollapsed", true);
        countInstructions(engine, "hidden, theirs", fill);
    }
    for (const int count : {countedRoots, countedRoots / 10}) {
        std::unique_ptr<QQuickItem> tree(create(engine, treeQml, stage.window.contentItem()));
        std::vector<std::unique_ptr<Document>> roots;
        for (int i = 0; i < count; ++i) {
            roots.push_back(std::make_unique<Document>());
            QQmlListReference(tree.get(), "rootDocuments").append(roots.back().get());
        }
        countInstructions(engine, count == countedRoots ? "roots, many" : "roots, few",
                          [&roots] { roots.clear(); });
    }
}

void printInstructions()
{
    std::map<std::string, double> counts = benchmark::instructionsOf({QStringLiteral("--counted")});
    if (counts.empty()) {
        return;
    }
    const auto perRow = [&counts](const char *name) { return counts[name] / countedRows; };
    benchmark::printRow("a shown row, beside a Repeater, instructions", 1.15, perRow("shown, ours"),
                        perRow("shown, theirs"), "");
    benchmark::printRow("a hidden row, beside a Repeater, instructions", 1.25,
                        perRow("hidden, ours"), perRow("hidden, theirs"), "");
    benchmark::printRow("a hidden row, beside a shown one, instructions", 1, perRow("hidden, ours"),
                        perRow("shown, ours"), "");
    benchmark::printRow("roots destroyed, 10,000 beside 1,000, instructions", 12,
                        counts["roots, many"], counts["roots, few"], "");
}

} // namespace

int main(int argc, char **argv)
{
    QGuiApplication application(argc, argv);
    QQmlEngine engine;
    engine.addImportPath(QStringLiteral(OMBREL_QML_IMPORT));
    Stage stage;
    stage.window.resize(640, 640);
    if (application.arguments().contains(QStringLiteral("--counted"))) {
        runCounted(engine, stage);
        return 0;
    }
    printInstructions();
    if (application.arguments().contains(QStringLiteral("--instructions"))) {
        return 0;
    }
    const auto tidy = [&engine] {
        engine.collectGarbage();
        deleteNow();
    };
    const QByteArray loaders = loadersQml();
    const char *const loadersRow = loaders.constData();
    const char *const operations[] = {"build",  "reload",    "deletion", "collapse",
                                      "expand", "insertion", "width"};
    {
        // One uncounted run of each side for the costs of a process or an engine: compiling the
        // files, decoding the handle's image, loading the font.
        std::vector<RowModel::Row> rows;
        const std::unique_ptr<Document> root = forest("flat", 100, &rows);
        Times unused;
        measureTree(engine, stage, root.get(), 100, &unused);
        measureColumn(engine, stage, rows, &unused);
        measureColumn(engine, stage, rows, &unused, loadersRow);
        measureVirtual(engine, stage, 100, &unused);
    }
    for (const char *shape : {"flat", "bushy", "deep"}) {
        std::map<int, Times> trees;
        std::map<int, Times> columns;
        for (const int count : {100, 1000, 5000, 10000}) {
            std::vector<RowModel::Row> rows;
            const std::unique_ptr<Document> root = forest(shape, count, &rows);
            Times virtualised;
            Times loaded;
            const int rounds = count <= 100 ? 25 : count <= 1000 ? 9 : 3;
            for (int round = 0; round < rounds; ++round) {
                // In alternating order, each after the other's garbage was collected.
                for (const bool ours : {round % 2 == 0, round % 2 != 0}) {
                    tidy();
                    if (ours) {
                        measureTree(engine, stage, root.get(), count, &trees[count]);
                    } else {
                        measureColumn(engine, stage, rows, &columns[count]);
                    }
                }
                if (shape == std::string("flat")) {
                    tidy();
                    measureVirtual(engine, stage, count, &virtualised);
                    tidy();
                    measureColumn(engine, stage, rows, &loaded, loadersRow);
                }
            }
            for (const char *operation : operations) {
                const std::string name =
                    std::string(shape) + " " + std::to_string(count) + ", " + operation;
                const bool built = operation == std::string("build");
                const double unit = built ? 1e3 / count : 1;
                benchmark::printRow((name + ", beside a Repeater").c_str(), 1.2,
                                    benchmark::median(trees[count][operation]) * unit,
                                    benchmark::median(columns[count][operation]) * unit,
                                    built ? "us/row" : "ms");
                if (!loaded[operation].empty()) {
                    std::printf("%-52s with loaders %13.3f %s  ratio %6.3f\n", name.c_str(),
                                benchmark::median(loaded[operation]) * unit,
                                built ? "us/row" : "ms",
                                benchmark::median(trees[count][operation])
                                    / benchmark::median(loaded[operation]));
                }
                if (!virtualised[operation].empty()) {
                    std::printf("%-52s virtualised view %10.3f ms\n", name.c_str(),
                                benchmark::median(virtualised[operation]));
                }
            }
            benchmark::printRow(
                (std::string(shape) + " " + std::to_string(count) + ", memory a row").c_str(), 1.2,
                benchmark::median(trees[count]["memory"]),
                benchmark::median(columns[count]["memory"]), "B");
        }
        for (const char *operation : operations) {
            const std::string name = std::string(shape) + " " + operation + ", 10,000 beside 1,000";
            benchmark::printRow(name.c_str(), 12, benchmark::median(trees[10000][operation]),
                                benchmark::median(trees[1000][operation]), "ms");
            std::printf("%-52s by hand %17.3f ms  theirs %12.3f ms  ratio %6.3f\n", name.c_str(),
                        benchmark::median(columns[10000][operation]),
                        benchmark::median(columns[1000][operation]),
                        benchmark::median(columns[10000][operation])
                            / benchmark::median(columns[1000][operation]));
        }
        benchmark::printRow((std::string(shape) + " collapse of 10,000, beside 150 ms").c_str(), 1,
                            benchmark::median(trees[10000]["collapse"]), 150, "ms");
        benchmark::printRow((std::string(shape) + " expand of 10,000, beside 150 ms").c_str(), 1,
                            benchmark::median(trees[10000]["expand"]), 150, "ms");
    }
    return 0;
}
