// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "benchmarks/support/SideBySide.h"

#include <OmbrelDataCore/Document.h>

#include <QCoreApplication>
#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQmlListReference>
#include <QQuickItem>
#include <QQuickWindow>
#include <QStandardItemModel>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <malloc.h>
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

// A row of the same parts, by hand: clip, press area, marker with handle, background, text, state.
const char *const columnQml = R"(
import QtQuick 2.12
Column {
    id: column
    width: 300
    property var levels: []
    property bool hideBelow: false
    Repeater {
        model: column.levels
        Item {
            id: row
            readonly property int indent: modelData * 20
            readonly property bool hidden: index > 0 && column.hideBelow
            width: parent ? parent.width : 100
            height: 0
            opacity: 0
            clip: true
            states: State {
                name: "displayed"
                when: !row.hidden
                PropertyChanges { target: row; height: text.height; opacity: 1 }
            }
            Rectangle { anchors.fill: parent; z: -1; color: "white" }
            Text {
                id: text
                anchors.right: parent.right
                width: row.width - row.indent - marker.width
                height: 24
                text: "document"
            }
            MouseArea {
                id: marker
                x: row.indent
                anchors.verticalCenter: parent.verticalCenter
                width: childrenRect.width
                height: childrenRect.height
                acceptedButtons: Qt.LeftButton
                visible: index === 0
                enabled: index === 0
                onClicked: column.hideBelow = !column.hideBelow
                Item {
                    width: 16
                    height: 16
                    Image {
                        anchors.centerIn: parent
                        source: "qrc:/controls/images/collapse-indicator.svg"
                        rotation: column.hideBelow ? 0 : 45
                    }
                }
            }
            MouseArea {
                anchors.fill: parent
                acceptedButtons: Qt.LeftButton
                onPressed: mouse.accepted = false
            }
        }
    }
}
)";

const char *const virtualQml = R"(
import QtQuick 2.12
import QtQuick.Controls 1.4
TreeView {
    width: 300; height: 600
    TableViewColumn { role: "display"; title: "Name"; width: 280 }
}
)";

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

double allocated()
{
    return double(mallinfo2().uordblks);
}

void rebuildNow(QObject *tree)
{
    QCoreApplication::sendPostedEvents(tree, QEvent::MetaCall);
}

void deleteNow()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

Document *child(Document *parent)
{
    auto *document = new Document(parent);
    document->setDocumentId(QString::number(quintptr(document)));
    document->setName(QStringLiteral("document"));
    return document;
}

/// One root with count - 1 documents below it: all at level 1, eight below each, or chains of 100.
std::unique_ptr<Document> forest(const std::string &shape, int count, QList<QVariant> *levels)
{
    auto root = std::make_unique<Document>();
    root->setDocumentId(QStringLiteral("root"));
    root->setName(QStringLiteral("document"));
    levels->append(0);
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
        levels->append(made.back().second);
    }
    for (std::size_t i = 0; i < made.size(); ++i) {
        for (Document *document : childrenOf[i]) {
            made[i].first->appendChild(document);
        }
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

void measureTree(QQmlEngine &engine, QQuickItem *parent, Document *root, int count, Times *times)
{
    std::unique_ptr<QQuickItem> tree(create(engine, treeQml, parent));
    const auto take = [times](const char *name, const std::function<void()> &body) {
        (*times)[name].push_back(processorMilliseconds(body));
    };
    const double before = allocated();
    take("build", [&] {
        QQmlListReference(tree.get(), "rootDocuments").append(root);
        rebuildNow(tree.get());
    });
    (*times)["memory"].push_back((allocated() - before) / count);
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

void measureColumn(QQmlEngine &engine, QQuickItem *parent, const QVariantList &levels, Times *times)
{
    std::unique_ptr<QQuickItem> column(create(engine, columnQml, parent));
    const auto take = [times, &column](const char *name, const std::function<void()> &body) {
        (*times)[name].push_back(processorMilliseconds([&] {
            body();
            QMetaObject::invokeMethod(column.get(), "forceLayout");
        }));
    };
    const double before = allocated();
    take("build", [&] { column->setProperty("levels", levels); });
    (*times)["memory"].push_back((allocated() - before) / levels.size());
    take("width", [&] { column->setWidth(column->width() + 10); });
    take("collapse", [&] { column->setProperty("hideBelow", true); });
    take("expand", [&] { column->setProperty("hideBelow", false); });
    QVariantList more = levels;
    more.append(1);
    take("reload", [&] { column->setProperty("levels", more); });
    take("deletion", [] { deleteNow(); });
    take("insertion", [&] {
        column->setProperty("levels", levels);
        deleteNow();
    });
}

/// The peer that makes only the rows to be seen; for the table.
void measureVirtual(QQmlEngine &engine, QQuickItem *parent, int count, Times *times)
{
    std::unique_ptr<QQuickItem> tree(create(engine, virtualQml, parent));
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

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values.empty() ? 0 : values.at(values.size() / 2);
}

} // namespace

int main(int argc, char **argv)
{
    QGuiApplication application(argc, argv);
    QQmlEngine engine;
    engine.addImportPath(QStringLiteral(OMBREL_QML_IMPORT));
    QQuickWindow window;
    window.resize(640, 640);
    const char *const operations[] = {"build",  "reload",    "deletion", "collapse",
                                      "expand", "insertion", "width"};
    for (const char *shape : {"flat", "bushy", "deep"}) {
        std::map<int, Times> trees;
        for (const int count : {100, 1000, 5000, 10000}) {
            QVariantList levels;
            const std::unique_ptr<Document> root = forest(shape, count, &levels);
            Times column;
            Times virtualised;
            const int rounds = count <= 100 ? 9 : count <= 1000 ? 5 : 3;
            for (int round = 0; round <= rounds; ++round) {
                if (round == 0 && count > 1000) {
                    continue;
                }
                if (round == 1) {
                    // The first round of the small sizes pays for the caches of all.
                    trees[count].clear();
                    column.clear();
                    virtualised.clear();
                }
                measureTree(engine, window.contentItem(), root.get(), count, &trees[count]);
                measureColumn(engine, window.contentItem(), levels, &column);
                if (shape == std::string("flat")) {
                    measureVirtual(engine, window.contentItem(), count, &virtualised);
                }
                engine.collectGarbage();
                deleteNow();
            }
            for (const char *operation : operations) {
                const std::string name =
                    std::string(shape) + " " + std::to_string(count) + ", " + operation;
                const bool built = operation == std::string("build");
                const double unit = built ? 1e3 / count : 1;
                benchmark::printRow((name + ", beside a Repeater").c_str(), 1.2,
                                    median(trees[count][operation]) * unit,
                                    median(column[operation]) * unit, built ? "us/row" : "ms");
                if (!virtualised[operation].empty()) {
                    std::printf("%-52s virtualised view %10.3f ms\n", name.c_str(),
                                median(virtualised[operation]));
                }
            }
            benchmark::printRow(
                (std::string(shape) + " " + std::to_string(count) + ", memory a row").c_str(), 1.2,
                median(trees[count]["memory"]), median(column["memory"]), "B");
        }
        for (const char *operation : operations) {
            benchmark::printRow(
                (std::string(shape) + " " + operation + ", 10,000 beside 1,000").c_str(), 12,
                median(trees[10000][operation]), median(trees[1000][operation]), "ms");
        }
        benchmark::printRow((std::string(shape) + " collapse of 10,000, beside 150 ms").c_str(), 1,
                            median(trees[10000]["collapse"]), 150, "ms");
        benchmark::printRow((std::string(shape) + " expand of 10,000, beside 150 ms").c_str(), 1,
                            median(trees[10000]["expand"]), 150, "ms");
    }
    return 0;
}
