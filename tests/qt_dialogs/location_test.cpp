#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>

#include "platform/qt/dialogs/location_dialog.h"
#include "platform/qt/dialogs/location_tree.h"
#include "tests/qt_dialogs/dialog_testing.h"

namespace tarvoni::qt {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class LocationTest : public testing::Test {
 protected:
  std::vector<std::int32_t> Chosen(const std::function<void(QDialog&)>& act) {
    WhenOpen(act);
    return ShowLocations(nullptr, request_);
  }

  LocationRequest request_{.caption = "Waldort",
                           .locations = {{1, "Nord/ Tal/ 1", "Bärenhalde"},
                                         {2, "Nord/ Tal/ 2", "Wiese"},
                                         {3, "Nord/ Berg/ 1", "Bärengrund"},
                                         {4, "Süd/ Tal", "Ganzer Distrikt"},
                                         {5, "Süd/ Tal/ 1", "Moos"},
                                         {6, "Süd/ Tal/ 1", "Moos doppelt"}},
                           .start_text = "",
                           .many = false};
};

void Mark(QDialog& dialog, const char* text, int column = 1) {
  auto& tree = Part<QTreeWidget>(dialog, "tree");
  const auto found = tree.findItems(text, Qt::MatchExactly | Qt::MatchRecursive, column);
  ASSERT_FALSE(found.isEmpty()) << text;
  found[0]->setCheckState(0, Qt::Checked);
}

TEST_F(LocationTest, PathsMakeATree) {
  const LocationTree tree(request_.locations);
  const auto& nodes = tree.Nodes();
  ASSERT_EQ(nodes.size(), 10U) << "two roots, three groups, five leaves";
  EXPECT_EQ(nodes[0].part, "Nord");
  EXPECT_FALSE(nodes[0].location);
  const int valley = tree.NodeOf("Süd/ Tal");
  EXPECT_EQ(nodes[static_cast<std::size_t>(valley)].location, 3U) << "a location that holds others";
  EXPECT_EQ(tree.NodeOf("Nord/ Tal/ 2:Wiese"), tree.NodeOf("Nord/ Tal/ 2"));
  EXPECT_EQ(tree.NodeOf("Nord/ Moor"), LocationTree::kNone);
  EXPECT_EQ(tree.NodeOf(""), LocationTree::kNone);
}

TEST_F(LocationTest, OneIsChosen) {
  request_.start_text = "Nord/ Berg/ 1:Bärengrund";
  EXPECT_THAT(Chosen([](QDialog& dialog) { Press(dialog, Qt::Key_Return); }), ElementsAre(3));
  EXPECT_THAT(Chosen([](QDialog& dialog) {
                Type(dialog, "baeren");
                EXPECT_EQ(Part<QLabel>(dialog, "state").text(), "Nord/ Tal/ 1");
                Press(dialog, Qt::Key_Down);
                Press(dialog, Qt::Key_Down);
                Press(dialog, Qt::Key_Return);
              }),
              ElementsAre(3))
      << "down over the group to the next";
  EXPECT_THAT(Chosen([](QDialog& dialog) {
                Type(dialog, "süd/ tal");
                Press(dialog, Qt::Key_Return);
              }),
              ElementsAre(4));
  EXPECT_THAT(Chosen([](QDialog& dialog) { Press(dialog, Qt::Key_Escape); }), IsEmpty());
}

TEST_F(LocationTest, AGroupIsNoAnswer) {
  EXPECT_THAT(Chosen([](QDialog& dialog) {
                EXPECT_FALSE(Part(dialog, "ok").isEnabled()) << "it begins at a group";
                Press(dialog, Qt::Key_Return);
                EXPECT_TRUE(dialog.isVisible());
                Type(dialog, "gibt es nicht");
                EXPECT_EQ(Part<QLabel>(dialog, "state").text(), "Kein Waldort passt.");
                Press(dialog, Qt::Key_Return);
                Press(dialog, Qt::Key_Escape);
              }),
              IsEmpty());
}

TEST_F(LocationTest, AnEmptyTreeTellsThatThereIsNothing) {
  request_.locations.clear();
  EXPECT_THAT(Chosen([](QDialog& dialog) {
                EXPECT_EQ(Part<QLabel>(dialog, "state").text(), "Es gibt noch keine Waldorte.");
                Press(dialog, Qt::Key_Escape);
              }),
              IsEmpty());
}

TEST_F(LocationTest, ManyAreMarked) {
  request_.many = true;
  EXPECT_THAT(Chosen([](QDialog& dialog) {
                Mark(dialog, "Moos");
                Mark(dialog, "Wiese");
                EXPECT_EQ(Part<QLabel>(dialog, "state").text(), "2 Waldorte markiert");
                Click(dialog, "ok");
              }),
              ElementsAre(2, 5))
      << "in the order of the request";
  EXPECT_THAT(Chosen([](QDialog& dialog) {
                Type(dialog, "moos");
                Press(dialog, Qt::Key_Return);
              }),
              ElementsAre(5))
      << "without a mark the current one";
  EXPECT_THAT(Chosen([](QDialog& dialog) {
                Type(dialog, "wiese");
                Press(dialog, Qt::Key_Space, Qt::ControlModifier);
                Part<QLineEdit>(dialog, "filter").setText("bärengrund");
                Press(dialog, Qt::Key_Space, Qt::ControlModifier);
                Press(dialog, Qt::Key_Return);
              }),
              ElementsAre(2, 3))
      << "marks outlive the filter";
}

TEST_F(LocationTest, AGroupMarksWhatItShows) {
  request_.many = true;
  EXPECT_THAT(Chosen([](QDialog& dialog) {
                Part<QLineEdit>(dialog, "filter").setText("bären");
                Mark(dialog, "Nord", 0);
                Click(dialog, "ok");
              }),
              ElementsAre(1, 3))
      << "not what the filter hides";
  EXPECT_THAT(Chosen([](QDialog& dialog) {
                Mark(dialog, "Nord", 0);
                Click(dialog, "clear");
                Mark(dialog, "Ganzer Distrikt");
                Click(dialog, "ok");
              }),
              ElementsAre(4))
      << "a location is marked for itself";
}

}  // namespace
}  // namespace tarvoni::qt
