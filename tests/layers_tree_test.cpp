#include <initializer_list>
#include <memory>
#include <stdexcept>
#include <vector>

#include <gtest/gtest.h>

#include <glyphwright/platform/layers/layer.h>

namespace glyphwright {
namespace {

using LayerPtr = std::shared_ptr<CALayer>;

void expectSublayers(const CALayer& layer, std::initializer_list<LayerPtr> expected) {
  ASSERT_TRUE(layer.sublayers());
  EXPECT_EQ(std::vector<LayerPtr>(layer.sublayers()->begin(), layer.sublayers()->end()),
            std::vector<LayerPtr>(expected));
}

TEST(LayerTree, AddingMovesALayerToTheEndOfItsNewSuperlayer) {
  const LayerPtr first = CALayer::layer();
  const LayerPtr second = CALayer::layer();
  const LayerPtr a = CALayer::layer();
  const LayerPtr b = CALayer::layer();
  EXPECT_FALSE(first->sublayers());
  first->addSublayer(a);
  first->addSublayer(b);
  first->addSublayer(a);
  expectSublayers(*first, {b, a});
  second->addSublayer(a);
  expectSublayers(*first, {b});
  expectSublayers(*second, {a});
  EXPECT_EQ(a->superlayer(), second.get());
  a->removeFromSuperlayer();
  a->removeFromSuperlayer();
  EXPECT_EQ(a->superlayer(), nullptr);
  expectSublayers(*second, {});
  second->addSublayer(nullptr);
  expectSublayers(*second, {});
}

TEST(LayerTree, CirclesAreRefusedAndChangeNothing) {
  const LayerPtr root = CALayer::layer();
  const LayerPtr middle = CALayer::layer();
  const LayerPtr leaf = CALayer::layer();
  const LayerPtr mask = CALayer::layer();
  root->addSublayer(middle);
  middle->addSublayer(leaf);
  leaf->setMask(mask);
  EXPECT_THROW(root->addSublayer(root), std::invalid_argument);
  EXPECT_THROW(leaf->addSublayer(root), std::invalid_argument);
  EXPECT_THROW(leaf->setMask(middle), std::invalid_argument);
  EXPECT_THROW(mask->addSublayer(root), std::invalid_argument);
  EXPECT_THROW(mask->setMask(mask), std::invalid_argument);
  expectSublayers(*root, {middle});
  expectSublayers(*middle, {leaf});
  EXPECT_EQ(leaf->mask(), mask);
  EXPECT_FALSE(leaf->sublayers());
}

TEST(LayerTree, TheDepthIsLimited) {
  const LayerPtr root = CALayer::layer();
  std::vector<LayerPtr> chain{root};
  for (int level = 1; level < kMaxLayerLevels; ++level) {
    chain.push_back(CALayer::layer());
    chain[chain.size() - 2]->addSublayer(chain.back());
  }
  EXPECT_THROW(chain.back()->addSublayer(CALayer::layer()), std::invalid_argument);
  // A whole tree is counted with all its levels.
  const LayerPtr above = CALayer::layer();
  EXPECT_THROW(above->addSublayer(root), std::invalid_argument);
  EXPECT_THROW(above->setMask(root), std::invalid_argument);
  above->addSublayer(chain[1]);
  EXPECT_EQ(chain[1]->superlayer(), above.get());
}

TEST(LayerTree, AMaskBelongsToTheMaskedLayerButNotToItsSublayers) {
  const LayerPtr parent = CALayer::layer();
  const LayerPtr masked = CALayer::layer();
  const LayerPtr mask = CALayer::layer();
  parent->addSublayer(mask);
  masked->setMask(mask);
  EXPECT_EQ(mask->superlayer(), masked.get());
  expectSublayers(*parent, {});
  EXPECT_FALSE(masked->sublayers());

  const LayerPtr other = CALayer::layer();
  other->setMask(mask);
  EXPECT_EQ(masked->mask(), nullptr);
  EXPECT_EQ(mask->superlayer(), other.get());
  other->setMask(CALayer::layer());
  EXPECT_EQ(mask->superlayer(), nullptr);
  other->mask()->removeFromSuperlayer();
  EXPECT_EQ(other->mask(), nullptr);
  masked->setMask(mask);
  masked->setMask(mask);
  EXPECT_EQ(mask->superlayer(), masked.get());
  parent->addSublayer(mask);
  EXPECT_EQ(masked->mask(), nullptr);
}

TEST(LayerTree, LayersOutliveTheirSuperlayer) {
  const LayerPtr sublayer = CALayer::layer();
  const LayerPtr mask = CALayer::layer();
  {
    const LayerPtr parent = CALayer::layer();
    parent->addSublayer(sublayer);
    parent->setMask(mask);
  }
  EXPECT_EQ(sublayer->superlayer(), nullptr);
  EXPECT_EQ(mask->superlayer(), nullptr);

  // The tree may hold the last reference to what leaves it.
  const LayerPtr parent = CALayer::layer();
  parent->addSublayer(CALayer::layer());
  (*parent->sublayers())[0]->removeFromSuperlayer();
  expectSublayers(*parent, {});
}

// Entries that count how often they are moved.
struct Moved {
  explicit Moved(int of = -1, int* all = nullptr) : number(of), moves(all) {}
  Moved(Moved&& other) noexcept : number(other.number), moves(other.moves) { ++*moves; }
  Moved& operator=(Moved&& other) noexcept {
    number = other.number;
    moves = other.moves;
    ++*moves;
    return *this;
  }
  int number;
  int* moves;
};

TEST(LayerTree, TakingOffEitherEndCostsNoMoreForMany) {
  for (const int count : {1000, 2000, 4000}) {
    int work = 0;
    int last = 0;
    SublayerList<Moved> list;
    const auto take = [&](int number) {
      return list.take([&](const Moved& entry) { return ++work, entry.number == number; });
    };
    for (; last < count; ++last) list.push_back(Moved(last, &work));
    // Each moves to the end, twice over; then all go, from both ends by turns.
    for (int i = 0; i < 2 * count; ++i) list.push_back(take(i % count));
    for (int i = 0; i < count; ++i) {
      const int number = i % 2 == 0 ? i / 2 : count - 1 - i / 2;
      EXPECT_EQ(take(number).number, number);
    }
    EXPECT_EQ(list.size(), 0U);
    EXPECT_LT(work, 40 * count);
  }
}

TEST(LayerTree, GroupsInGroupsEndOneAfterTheOther) {
  auto group = CAAnimationGroup::animation();
  for (int i = 0; i < 200000; ++i) {
    const auto outer = CAAnimationGroup::animation();
    outer->setAnimations({group});
    group = outer;
  }
  const auto layer = CALayer::layer();
  layer->addAnimation(group, "deep");
  group.reset();
  EXPECT_NE(layer->animationForKey("deep"), nullptr);
}

}  // namespace
}  // namespace glyphwright
