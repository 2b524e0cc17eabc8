// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

// The list in report view, by keyboard and mouse.

#include <QAbstractItemModelTester>
#include <QHeaderView>
#include <QTreeView>

#include "qt/list_model.h"
#include "qt/support.h"

namespace test {
namespace {

struct Results : platform::Form {
    explicit Results(platform::Desktop& desktop)
        : Form(desktop, "frmResults", {.ClientWidth = 4800, .ClientHeight = 3600}) {
        lvw.ItemClick = [this](const ListItem& item) { Said.push_back("item " + item.Text); };
        lvw.ColumnClick = [this](int column) { Said.push_back("column " + std::to_string(column)); };
        lvw.DblClick = [this] { Said.push_back("double"); };
        lvw.KeyPress = [this](int& key) { Said.push_back("key " + std::to_string(key)); };
    }
    void Fill(int rows) {
        lvw.ClearItems();
        for (int i = 0; i < rows; ++i) {
            lvw.AddItem("K" + std::to_string(i), std::string(1, static_cast<char>('a' + i % 26)))
                .AddSubItem(std::to_string(i));
        }
    }
    ListView lvw{*this, "lvw", {.Left = 120, .Top = 120, .Width = 4500, .Height = 3300}};
    ImageList imgArrows{*this, "imgArrows", {{"Up", "sort-ascending"}, {"Down", "sort-descending"}}};
    Log Said;

  protected:
    void Form_Load() override {
        lvw.SetColumnHeaderIcons(&imgArrows);
        lvw.AddColumn("Name", 1500);
        lvw.AddColumn("Number", 900, Align::Right);
        lvw.AddColumn("", 0);
        Fill(5);
    }
};

class ListTest : public testing::Test {
  protected:
    void SetUp() override {
        ShowActive(S.Desktop, Form);
        View = WidgetOf<QTreeView>(Form.lvw);
    }
    void TearDown() override { Form.Unload(); }
    Log Said() { return std::exchange(Form.Said, {}); }
    void Key(Qt::Key key) {
        QTest::keyClick(View, key);
        S.Desktop.Flush();
    }
    QPoint Row(int row) const { return View->visualRect(View->model()->index(row, 0)).center(); }

    Screen S;
    Results Form{S.Desktop};
    QTreeView* View = nullptr;
};

TEST_F(ListTest, KeysSelectAndTheFormIsTold) {
    Form.lvw.Select(0);
    S.Desktop.Flush();
    EXPECT_EQ(Said(), Log{});
    Key(Qt::Key_Down);
    Key(Qt::Key_End);
    Key(Qt::Key_Home);
    EXPECT_EQ(Said(), (Log{"item b", "item e", "item a"}));
    QTest::keyClicks(View, "d");  // to the row that begins so
    EXPECT_EQ(Said(), (Log{"key 100", "item d"}));
    EXPECT_EQ(Form.lvw.SelectedIndex(), 3);
    Key(Qt::Key_Return);
    EXPECT_EQ(Said(), Log{"key 13"});
}

TEST_F(ListTest, ClicksSelectAlsoTheRowThatIsSelected) {
    QTest::mouseClick(View->viewport(), Qt::LeftButton, {}, Row(2));
    QTest::mouseClick(View->viewport(), Qt::LeftButton, {}, Row(2));
    EXPECT_EQ(Said(), (Log{"item c", "item c"}));
    QTest::mouseDClick(View->viewport(), Qt::LeftButton, {}, Row(2));
    EXPECT_EQ(Said(), Log{"double"});
    // On the empty part nothing is selected, yet it is a double click.
    const QPoint empty(20, View->viewport()->height() - 4);
    QTest::mouseClick(View->viewport(), Qt::LeftButton, {}, empty);
    QTest::mouseDClick(View->viewport(), Qt::LeftButton, {}, empty);
    EXPECT_EQ(Said(), Log{"double"});
    S.Desktop.Flush();
    EXPECT_EQ(Form.lvw.SelectedIndex(), 2);
    EXPECT_TRUE(View->selectionModel()->isRowSelected(2));
}

TEST_F(ListTest, HeadingsAreClickedAndShowTheSortPicture) {
    QHeaderView* header = View->header();
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                      {header->sectionViewportPosition(1) + 8, header->height() / 2});
    EXPECT_EQ(Said(), Log{"column 2"});

    // Away from where the mouse is: a heading under it looks different.
    const auto heading = [&] {
        S.Desktop.Flush();
        return header->viewport()->grab(QRect(0, 0, header->sectionSize(0), header->height())).toImage();
    };
    const QImage bare = heading();
    Form.lvw.SetColumnSortImage(0, 0);
    const QImage up = heading();
    Form.lvw.SetColumnSortImage(0, 1);
    EXPECT_NE(up, bare);
    EXPECT_NE(up, heading());
    Form.lvw.SetColumnSortImage(0, std::nullopt);
    EXPECT_EQ(bare, heading());
    EXPECT_TRUE(header->isSectionHidden(2));
    EXPECT_EQ(View->model()->headerData(1, Qt::Horizontal, Qt::TextAlignmentRole).toInt(),
              int(Qt::AlignRight | Qt::AlignVCenter));
}

TEST_F(ListTest, AColumnDraggedWiderStaysSo) {
    QHeaderView* header = View->header();
    const int before = header->sectionSize(0);
    header->resizeSection(0, before + 30);  // as the mouse does it
    EXPECT_GT(Form.lvw.Column(0).Width, 1500);
    Form.lvw.SetColumnSortImage(0, 0);
    Form.Fill(9);
    S.Desktop.Flush();
    EXPECT_EQ(header->sectionSize(0), before + 30);
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
}

TEST_F(ListTest, AHundredThousandRowsAreOneUpdate) {
    int updates = 0;
    QObject::connect(View->model(), &QAbstractItemModel::modelReset, View, [&] { ++updates; });
    Form.Fill(100'000);
    QApplication::processEvents();
    EXPECT_EQ(updates, 1);
    Key(Qt::Key_End);
    EXPECT_EQ(Form.lvw.SelectedIndex(), 99'999);
}

}  // namespace
}  // namespace test
