// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/private/CheckerBox.h"
#include "controls/private/HueBox.h"
#include "controls/private/SaturationValueBox.h"
#include "controls/scenegraph/CheckerBoxShader.h"
#include "controls/scenegraph/DashedGeometryNode.h"
#include "controls/scenegraph/DashedLineShader.h"
#include "controls/visuals/DashedBorder.h"
#include "controls/visuals/FrameItem.h"
#include "tests/support/Leftovers.h"

#include <QSGFlatColorMaterial>
#include <QSGGeometryNode>
#include <QSGVertexColorMaterial>
#include <QTest>

#include <cstring>
#include <memory>
#include <new>

using namespace om::controls;

/// The nodes that the items make, looked at without a window.
class TestNodes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(support::leftovers(), QString()); }
    void dashedBorder();
    void dashedBorderHasANewMaterialAtEachUpdate();
    void frameItem();
    void checkerBox();
    void hueBox();
    void saturationValueBox();
    void onlyWhatIsDirtyIsRefreshed();
    void everythingIsSetAgainOnANewNode();
    void shadersShareNoMaterialType();
    void checkerParamsBeginWithNoSize();
};

namespace {

/// Opens the item's paint function to the test.
template<typename Item>
class Open : public Item
{
public:
    using Item::Item;

    QSGGeometryNode *paint(QSGNode *oldNode = nullptr)
    {
        auto *node = static_cast<QSGGeometryNode *>(Item::updatePaintNode(oldNode, nullptr));
        if (oldNode && node != oldNode) {
            qFatal("The node there is was not used");
        }
        return node;
    }
};

} // namespace

void TestNodes::dashedBorder()
{
    Open<DashedBorder> border;
    QVERIFY(border.flags() & QQuickItem::ItemHasContents);
    border.setSize({30, 20});
    const std::unique_ptr<QSGGeometryNode> node(border.paint());
    QVERIFY(dynamic_cast<DashedGeometryNode *>(node.get()));
    QVERIFY(node->flags() & QSGNode::UsePreprocess);
    QVERIFY(node->flags() & QSGNode::OwnsGeometry);
    QVERIFY(node->flags() & QSGNode::OwnsMaterial);
    QCOMPARE(node->geometry()->drawingMode(), unsigned(QSGGeometry::DrawLineLoop));
    QCOMPARE(node->geometry()->vertexCount(), 4);
    QCOMPARE(node->geometry()->indexCount(), 0);
    QCOMPARE(node->geometry()->vertexDataAsPoint2D()[2].x, 30.0f);
    QCOMPARE(node->geometry()->vertexDataAsPoint2D()[2].y, 20.0f);
    QVERIFY(node->material()->flags() & QSGMaterial::Blending);
    border.setSize({7, 8});
    border.paint(node.get());
    QCOMPARE(node->geometry()->vertexDataAsPoint2D()[2].x, 7.0f);
}

void TestNodes::dashedBorderHasANewMaterialAtEachUpdate()
{
    Open<DashedBorder> border;
    border.setBorderColor(Qt::red);
    const std::unique_ptr<QSGGeometryNode> node(border.paint());
    const auto color = [&node] {
        return static_cast<QSGSimpleMaterial<DashedLine> *>(node->material())->state()->color;
    };
    QCOMPARE(color(), QColor(Qt::red));
    const QSGMaterial *first = node->material();
    // The old one lives until the new one is there: the addresses cannot be the same.
    border.paint(node.get());
    QVERIFY(node->material() != first);
    border.setBorderColor(Qt::blue);
    border.paint(node.get());
    QCOMPARE(color(), QColor(Qt::blue));
    QVERIFY(node->flags() & QSGNode::OwnsMaterial);
}

void TestNodes::frameItem()
{
    Open<FrameItem> ring(nullptr);
    QVERIFY(ring.flags() & QQuickItem::ItemHasContents);
    QCOMPARE(ring.z(), 65534.0);
    ring.setFrameWidth(4);
    ring.setRect({1, 2, 100, 50});
    QCOMPARE(ring.position(), QPointF(1, 2));
    QCOMPARE(ring.size(), QSizeF(100, 50));
    const std::unique_ptr<QSGGeometryNode> node(ring.paint());
    QCOMPARE(node->geometry()->drawingMode(), unsigned(QSGGeometry::DrawTriangleStrip));
    QCOMPARE(node->geometry()->vertexCount(), 10);
    QCOMPARE(node->geometry()->vertexDataAsPoint2D()[5].x, 96.0f);
    QCOMPARE(node->geometry()->vertexDataAsPoint2D()[5].y, 46.0f);
    auto *material = static_cast<QSGFlatColorMaterial *>(node->material());
    QCOMPARE(material->color(), QColor(Qt::black));
    ring.setColor(Qt::green);
    ring.paint(node.get());
    QCOMPARE(material->color(), QColor(Qt::green));
    ring.setFrameWidth(10);
    ring.paint(node.get());
    QCOMPARE(node->geometry()->vertexDataAsPoint2D()[5].x, 90.0f);
}

void TestNodes::checkerBox()
{
    Open<CheckerBox> box;
    QVERIFY(box.flags() & QQuickItem::ItemHasContents);
    box.setSize({24, 10});
    const std::unique_ptr<QSGGeometryNode> node(box.paint());
    QVERIFY(node->flags() & QSGNode::OwnedByParent);
    QVERIFY(node->flags() & QSGNode::OwnsGeometry);
    QVERIFY(node->flags() & QSGNode::OwnsMaterial);
    QVERIFY(!(node->material()->flags() & QSGMaterial::Blending));
    QCOMPARE(node->geometry()->drawingMode(), unsigned(QSGGeometry::DrawTriangleStrip));
    QCOMPARE(node->geometry()->sizeOfVertex(), 16);
    auto *material = static_cast<QSGSimpleMaterial<CheckerParams> *>(node->material());
    QCOMPARE(material->state()->size, 8.0f);
    QCOMPARE(material->state()->light, QColor(Qt::lightGray));
    QCOMPARE(material->state()->dark, QColor(Qt::gray));
    box.setCheckerSize(30);
    box.setLightColor(Qt::red);
    box.setDarkColor(Qt::blue);
    box.paint(node.get());
    QCOMPARE(node->material(), material);
    QCOMPARE(material->state()->size, 30.0f);
    QCOMPARE(material->state()->light, QColor(Qt::red));
    QCOMPARE(material->state()->dark, QColor(Qt::blue));
}

void TestNodes::hueBox()
{
    Open<HueBox> box;
    box.setSize({60, 10});
    const std::unique_ptr<QSGGeometryNode> node(box.paint());
    QVERIFY(node->flags() & QSGNode::OwnedByParent);
    QVERIFY(node->flags() & QSGNode::OwnsGeometry);
    QVERIFY(node->flags() & QSGNode::OwnsMaterial);
    QVERIFY(dynamic_cast<QSGVertexColorMaterial *>(node->material()));
    QCOMPARE(node->geometry()->vertexCount(), 14);
    QCOMPARE(node->geometry()->vertexDataAsColoredPoint2D()[13].x, 60.0f);
    box.setSize({120, 10});
    box.paint(node.get());
    QCOMPARE(node->geometry()->vertexDataAsColoredPoint2D()[13].x, 120.0f);
}

void TestNodes::saturationValueBox()
{
    Open<SaturationValueBox> box;
    box.setSize({60, 10});
    const std::unique_ptr<QSGGeometryNode> node(box.paint());
    QVERIFY(node->flags() & QSGNode::OwnedByParent);
    QVERIFY(dynamic_cast<QSGVertexColorMaterial *>(node->material()));
    QCOMPARE(node->geometry()->vertexCount(), 4);
    QCOMPARE(int(node->geometry()->vertexDataAsColoredPoint2D()[1].g), 0);
    box.setHue(120);
    box.paint(node.get());
    QCOMPARE(int(node->geometry()->vertexDataAsColoredPoint2D()[1].g), 255);
}

/// What is put into the node by hand stays there until something of the item changes it.
void TestNodes::onlyWhatIsDirtyIsRefreshed()
{
    Open<CheckerBox> box;
    box.setSize({24, 10});
    const std::unique_ptr<QSGGeometryNode> node(box.paint());
    auto *params = static_cast<QSGSimpleMaterial<CheckerParams> *>(node->material())->state();
    float &corner = static_cast<float *>(node->geometry()->vertexData())[4];
    params->size = 99;
    corner = 99;
    box.paint(node.get());
    QCOMPARE(params->size, 99.0f);
    QCOMPARE(corner, 99.0f);
    box.setCheckerSize(5);
    box.paint(node.get());
    QCOMPARE(params->size, 5.0f);
    QCOMPARE(corner, 99.0f);
    params->size = 99;
    box.setWidth(30);
    box.paint(node.get());
    QCOMPARE(params->size, 99.0f);
    QCOMPARE(corner, 30.0f);

    Open<FrameItem> ring(nullptr);
    ring.setRect({0, 0, 40, 30});
    const std::unique_ptr<QSGGeometryNode> ringNode(ring.paint());
    auto *material = static_cast<QSGFlatColorMaterial *>(ringNode->material());
    float &side = ringNode->geometry()->vertexDataAsPoint2D()[4].x;
    material->setColor(Qt::yellow);
    side = 99;
    ring.paint(ringNode.get());
    QCOMPARE(material->color(), QColor(Qt::yellow));
    QCOMPARE(side, 99.0f);
    ring.setColor(Qt::red);
    ring.paint(ringNode.get());
    QCOMPARE(material->color(), QColor(Qt::red));
    QCOMPARE(side, 99.0f);
    material->setColor(Qt::yellow);
    // A new place is a reason, too.
    ring.setRect({5, 0, 40, 30});
    ring.paint(ringNode.get());
    QCOMPARE(material->color(), QColor(Qt::yellow));
    QCOMPARE(side, 40.0f);
}

/// A scene graph that was thrown away asks for a node without saying why.
void TestNodes::everythingIsSetAgainOnANewNode()
{
    Open<CheckerBox> box;
    box.setSize({24, 10});
    box.setCheckerSize(5);
    delete box.paint();
    const std::unique_ptr<QSGGeometryNode> node(box.paint());
    QCOMPARE(static_cast<QSGSimpleMaterial<CheckerParams> *>(node->material())->state()->size,
             5.0f);
    QCOMPARE(static_cast<float *>(node->geometry()->vertexData())[4], 24.0f);

    Open<FrameItem> ring(nullptr);
    ring.setRect({0, 0, 40, 30});
    ring.setColor(Qt::red);
    delete ring.paint();
    const std::unique_ptr<QSGGeometryNode> ringNode(ring.paint());
    QCOMPARE(static_cast<QSGFlatColorMaterial *>(ringNode->material())->color(), QColor(Qt::red));
    QCOMPARE(ringNode->geometry()->vertexDataAsPoint2D()[4].x, 40.0f);
}

void TestNodes::shadersShareNoMaterialType()
{
    const std::unique_ptr<QSGMaterial> dashed(DashedLineShader::createMaterial());
    const std::unique_ptr<QSGMaterial> checkered(CheckerBoxShader::createMaterial());
    QVERIFY(dashed->type() != checkered->type());
}

/// A material begins with the state as its type makes it, in memory that held something else.
void TestNodes::checkerParamsBeginWithNoSize()
{
    alignas(CheckerParams) unsigned char memory[sizeof(CheckerParams)];
    std::memset(memory, 0x7f, sizeof memory);
    auto *params = new (memory) CheckerParams;
    QCOMPARE(params->size, 0.0f);
    params->~CheckerParams();
}

QTEST_MAIN(TestNodes)
#include "tst_nodes.moc"
