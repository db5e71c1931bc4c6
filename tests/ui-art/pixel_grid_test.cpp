#include <QMatrix4x4>
#include <QSGNode>
#include <gtest/gtest.h>
#include <vector>

#include "ui/art/pixel_grid_node.h"

namespace morvane {
namespace {

struct Shown {
    QRectF place;
    QSGTexture::Filtering filtering;
};

class RecordingNode : public PixelGridNode {
public:
    std::vector<Shown> shown;

protected:
    void show(const QRectF& place, QSGTexture::Filtering filtering) override {
        shown.push_back({place, filtering});
    }
};

// A picture of 10 by 10 in an item, in a window.
class PixelGrid : public testing::Test {
protected:
    void SetUp() override {
        for (QSGNode* above : {static_cast<QSGNode*>(&window_), static_cast<QSGNode*>(&item_)})
            above->setFlag(QSGNode::OwnedByParent, false);
        node_.setFlag(QSGNode::OwnedByParent, false);
        window_.appendChildNode(&item_);
        item_.appendChildNode(&node_);
    }
    void TearDown() override {
        item_.removeAllChildNodes();
        window_.removeAllChildNodes();
    }
    void moveItem(float x, float y) {
        QMatrix4x4 matrix;
        matrix.translate(x, y);
        item_.setMatrix(matrix);
    }

    QSGTransformNode window_;
    QSGTransformNode item_;
    RecordingNode node_;
};

TEST_F(PixelGrid, PutsAPictureOnTheNearestDevicePixel) {
    moveItem(10.25F, 20.75F);
    node_.setPlace(QRectF(0, 0, 10, 10), 1);
    node_.preprocess();
    ASSERT_EQ(node_.shown.size(), 1U);
    EXPECT_EQ(node_.shown[0].place, QRectF(-0.25, 0.25, 10, 10));
    EXPECT_EQ(node_.shown[0].filtering, QSGTexture::Nearest);
    node_.setPlace(QRectF(0.125, 0, 10, 10), 2);
    node_.preprocess();
    EXPECT_EQ(node_.shown.back().place, QRectF(0.25, -0.25 + 0.5, 10, 10));
}

TEST_F(PixelGrid, FollowsItsAncestorsWithoutBeingTold) {
    moveItem(3, 4);
    node_.setPlace(QRectF(0, 0, 10, 10), 1);
    node_.preprocess();
    QMatrix4x4 matrix;
    matrix.translate(0.25F, 0);
    window_.setMatrix(matrix);
    node_.preprocess();
    ASSERT_EQ(node_.shown.size(), 2U);
    EXPECT_EQ(node_.shown[1].place, QRectF(-0.25, 0, 10, 10));
}

TEST_F(PixelGrid, ShowsNothingAnewWhereNothingMoved) {
    moveItem(3.25F, 4);
    node_.setPlace(QRectF(0, 0, 10, 10), 1);
    node_.preprocess();
    node_.preprocess();
    moveItem(7.25F, 9);
    node_.preprocess();
    EXPECT_EQ(node_.shown.size(), 1U);
}

TEST_F(PixelGrid, StaysWhereItIsAndIsMixedBelowAScaling) {
    QMatrix4x4 matrix;
    matrix.translate(0.25F, 0.25F);
    matrix.scale(0.97F);
    item_.setMatrix(matrix);
    node_.setPlace(QRectF(0, 0, 10, 10), 1);
    node_.preprocess();
    ASSERT_EQ(node_.shown.size(), 1U);
    EXPECT_EQ(node_.shown[0].place, QRectF(0, 0, 10, 10));
    EXPECT_EQ(node_.shown[0].filtering, QSGTexture::Linear);
    moveItem(5, 5);
    node_.preprocess();
    EXPECT_EQ(node_.shown.back().filtering, QSGTexture::Nearest);
}

TEST_F(PixelGrid, StaysWhereItIsBelowAQuarterTurn) {
    QMatrix4x4 matrix;
    matrix.translate(0.25F, 0.25F);
    matrix.rotate(90, 0, 0, 1);
    item_.setMatrix(matrix);
    node_.setPlace(QRectF(0, 0, 10, 10), 1);
    node_.preprocess();
    EXPECT_EQ(node_.shown[0].place, QRectF(0, 0, 10, 10));
    EXPECT_EQ(node_.shown[0].filtering, QSGTexture::Linear);
}

TEST(ToPixelGrid, TakesTheNearestDevicePixel) {
    EXPECT_NEAR(toPixelGrid({10.3, 10.6}, 1).x(), -0.3, 1e-9);
    EXPECT_NEAR(toPixelGrid({10.3, 10.6}, 1).y(), 0.4, 1e-9);
    EXPECT_NEAR(toPixelGrid({10.3, 10.6}, 2).x(), 0.2, 1e-9);
    EXPECT_EQ(toPixelGrid({10.5, -3}, 2), QPointF(0, 0));
}

}  // namespace
}  // namespace morvane
