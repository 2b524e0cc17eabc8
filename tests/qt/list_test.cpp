// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

// The list in report view, by keyboard and mouse.

#include <QAbstractItemModelTester>
#include <QHeaderView>
#include <QTreeView>

#include "qt/support.h"

namespace test {
namespace {

class ListTest : public EntryTest {
  protected:
    void SetUp() override {
        EntryTest::SetUp();
        View = WidgetOf<QTreeView>(Form.lvw);
        Form.lvw.SetFocus();
        Said();
    }
    QPoint Row(int row) const { return View->visualRect(View->model()->index(row, 0)).center(); }

    QTreeView* View = nullptr;
};

TEST_F(ListTest, KeysAndClicksSelectAndTheFormIsTold) {
    Form.lvw.Select(0);
    S.Desktop.Flush();
    EXPECT_EQ(Said(), Log{});
    Key(Qt::Key_Down);
    Key(Qt::Key_End);
    Key(Qt::Key_Home);
    EXPECT_EQ(Said(), (Log{"item b", "item e", "item a"}));
    Key(Qt::Key_D);  // to the row that begins so
    EXPECT_EQ(Said(), (Log{"key 100", "item d"}));

    // The row that is selected counts, too.
    QTest::mouseClick(View->viewport(), Qt::LeftButton, {}, Row(2));
    QTest::mouseClick(View->viewport(), Qt::LeftButton, {}, Row(2));
    EXPECT_EQ(Said(), (Log{"item c", "item c"}));
    QTest::mouseDClick(View->viewport(), Qt::LeftButton, {}, Row(2));
    EXPECT_EQ(Said(), Log{"double"});
    // On the empty part nothing is selected, yet it is a double click.
    QTest::mouseDClick(View->viewport(), Qt::LeftButton, {}, {20, View->viewport()->height() - 4});
    EXPECT_EQ(Said(), Log{"double"});
    S.Desktop.Flush();
    EXPECT_EQ(Form.lvw.SelectedIndex(), 2);
    EXPECT_TRUE(View->selectionModel()->isRowSelected(2));
}

TEST(ListOfSeveral, SaysWhatKeysAndClicksSelectAndTick) {
    Screen s;
    Several form(s.Desktop);
    ShowActive(s.Desktop, form);
    auto* view = WidgetOf<QTreeView>(form.lvw);
    form.lvw.SetFocus();
    const auto said = [&] {
        s.Desktop.Flush();
        return std::exchange(form.Said, {});
    };
    const auto click = [&](int row, Qt::KeyboardModifiers with, int x) {
        const int y = view->visualRect(view->model()->index(row, 0)).center().y();
        QTest::mouseClick(view->viewport(), Qt::LeftButton, with, {x, y});
    };
    for (const auto with : {Qt::NoModifier, Qt::NoModifier, Qt::ShiftModifier}) {
        QTest::keyClick(view, Qt::Key_Down, with);
    }
    EXPECT_EQ(said(), (Log{"item a", "item b", "item c"}));
    QTest::keyClick(view, Qt::Key_Space);
    EXPECT_EQ(said(), (Log{"tick b", "tick c"}));
    click(3, Qt::ControlModifier, 60);
    EXPECT_EQ(said(), (Log{"item d", "click b c d"}));
    QTest::keyClick(view, Qt::Key_Up, Qt::NoModifier);
    EXPECT_EQ(said(), Log{"item c"});
    click(0, {}, 8);  // on its box
    EXPECT_EQ(said().back(), "tick a");
    // A click on the empty part clears the selection first.
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, {20, view->viewport()->height() - 4});
    EXPECT_EQ(said(), Log{"click"});

    // The focus doesn't stay on a page that is turned.
    QTest::keyClick(view, Qt::Key_PageDown, Qt::ControlModifier);
    s.Desktop.Flush();
    EXPECT_EQ(form.ActiveControl(), &form.other);
    EXPECT_EQ(QApplication::focusWidget(), WidgetOf<QTreeView>(form.other));
    form.Unload();
}

TEST_F(ListTest, HeadingsAreClickedAndShowTheSortPicture) {
    QHeaderView* header = View->header();
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                      {header->sectionViewportPosition(1) + 8, header->height() / 2});
    EXPECT_EQ(Said(), Log{"column 2"});

    // Away from where the mouse is: a heading under it looks different.
    const auto heading = [&](std::optional<int> image) {
        Form.lvw.SetColumnSortImage(0, image);
        S.Desktop.Flush();
        return header->viewport()->grab(QRect(0, 0, header->sectionSize(0), header->height())).toImage();
    };
    const QImage bare = heading(std::nullopt);
    const QImage up = heading(0);
    EXPECT_NE(up, bare);
    EXPECT_NE(up, heading(1));
    EXPECT_EQ(bare, heading(std::nullopt));
    EXPECT_EQ(View->model()->headerData(1, Qt::Horizontal, Qt::TextAlignmentRole).toInt(),
              int(Qt::AlignRight | Qt::AlignVCenter));
}

TEST_F(ListTest, SpeaksAndObeysKeysLikeAMouse) {
    Form.lvw.Look = [](int column, const std::string& text) {
        return platform::CellLook{.Spoken = column == 1 ? "no. " + text : ""};
    };
    Form.lvw.Tip = [](const ListItem& item) { return "about " + item.Text; };
    Form.lvw.SortKey = 1;
    Form.lvw.SortOrder = 1;
    Form.lvw.Sorted = true;
    Form.lvw.SetColumnSortImage(1, 1);
    Form.lvw.Select(0);
    S.Desktop.Flush();
    const auto data = [&](int column, int role) {
        return View->model()->index(1, column).data(role).toString();
    };
    EXPECT_EQ(data(1, Qt::AccessibleTextRole), "no. 3");
    EXPECT_EQ(data(0, Qt::AccessibleTextRole), "");
    EXPECT_EQ(data(0, Qt::AccessibleDescriptionRole), "about d");
    EXPECT_EQ(View->model()->headerData(1, Qt::Horizontal, Qt::AccessibleTextRole), "Number, descending");
    for (const Qt::Key key : {Qt::Key_2, Qt::Key_3, Qt::Key_9}) {
        Key(key, Qt::ControlModifier);
    }
    // The third is hidden, a ninth isn't there.
    EXPECT_EQ(Said(), (Log{"key 50", "column 2", "key 51", "key 57"}));
    Key(Qt::Key_Space);
    Key(Qt::Key_1);  // in the column that it is sorted by
    EXPECT_EQ(Said(), (Log{"key 32", "item e", "key 49", "item b"}));
}

TEST_F(ListTest, AColumnDraggedWiderStaysSoAndNoneIsTooNarrowToBeGrabbed) {
    QHeaderView* header = View->header();
    const int wide = header->sectionSize(0) + 30;
    header->resizeSection(0, wide);  // as the mouse does it
    const int twips = Form.lvw.Column(0).Width;
    EXPECT_GT(twips, 1500);
    Form.Fill(90);
    S.Desktop.Flush();
    EXPECT_EQ(header->sectionSize(0), wide);
    // The last column that is seen goes to the edge, or gives way to the scroll bar; for the windows it keeps
    // its width.
    const int last = Form.lvw.Column(1).Width;
    EXPECT_EQ(header->sectionSize(1), View->viewport()->width() - wide);
    Form.lvw.SetColumnWidth(0, 1);
    S.Desktop.Flush();
    EXPECT_EQ(header->sectionSize(0), header->minimumSectionSize());
    EXPECT_NEAR(header->minimumSectionSize(), wide * 300 / twips, 1);
    EXPECT_EQ(Form.lvw.Column(1).Width, last);
    EXPECT_TRUE(header->isSectionHidden(2));
}

TEST_F(ListTest, FollowsTheFormThroughRefillsAndSorting) {
    QAbstractItemModelTester tester(View->model(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    Form.lvw.Select(1);
    Form.lvw.SortOrder = 1;
    Form.lvw.Sorted = true;
    S.Desktop.Flush();
    EXPECT_EQ(View->model()->index(0, 0).data().toString(), "e");
    EXPECT_EQ(View->currentIndex().row(), 3);

    // Asked between a change and its carrying over, as by a reader of the screen, nothing is beyond the rows.
    const QModelIndex last = View->model()->index(4, 1);
    Form.Fill(2);
    EXPECT_FALSE(last.data().isValid());
    S.Desktop.Flush();
    EXPECT_EQ(View->model()->rowCount(), 2);
    EXPECT_EQ(View->currentIndex().row(), 0);  // a current row wherever there are rows
    EXPECT_FALSE(View->selectionModel()->hasSelection());

    Form.Fill(0);
    Form.lvw.ClearColumns();
    S.Desktop.Flush();
    EXPECT_EQ(View->model()->rowCount(), 0);
    EXPECT_EQ(View->model()->columnCount(), 0);
    EXPECT_EQ(Said(), Log{});

    int updates = 0;
    QObject::connect(View->model(), &QAbstractItemModel::modelReset, View, [&] { ++updates; });
    Form.Fill(100'000);
    S.Desktop.Flush();
    EXPECT_EQ(updates, 1);
}

}  // namespace
}  // namespace test
