// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/forms/control.h"
#include "platform/richtext.h"

namespace platform {

namespace adodb {
class Recordset;
}

/// A control with a caption; an "&" before a letter makes it the mnemonic.
class CaptionControl : public Control {
  public:
    Property<std::string> Caption;
    void SetCaption(const std::string& text) override { Caption = text; }
    std::string CaptionText() const override { return Caption; }

  protected:
    CaptionControl(Form& parent, std::string name, const Design& design, int index)
        : Control(parent, std::move(name), design, index), Caption(*this, design.Caption) {}
};

class Label final : public CaptionControl {
  public:
    Label(Form& parent, std::string name, const Design& design, int index = -1)
        : CaptionControl(parent, std::move(name), design, index), Alignment(*this, design.Alignment) {}
    std::string_view TypeName() const override { return "Label"; }
    Property<Align> Alignment;
};

class Frame final : public CaptionControl {
  public:
    Frame(Form& parent, std::string name, const Design& design, int index = -1)
        : CaptionControl(parent, std::move(name), design, index) {}
    std::string_view TypeName() const override { return "Frame"; }
};

class CommandButton final : public CaptionControl {
  public:
    CommandButton(Form& parent, std::string name, const Design& design, int index = -1);
    std::string_view TypeName() const override { return "CommandButton"; }
    /// Enter presses it wherever the focus is; one button of a window at a time.
    Property<bool> Default;
    /// Esc presses it while it is visible.
    Property<bool> Cancel;
    std::function<void()> Click;

    bool TakesFocus() const override { return true; }
    bool Press() override;
    bool WantsEnter() const override { return true; }
    void PropertyChanged(const PropertyBase& property) override;
    void InputClick();
};

class CheckBox final : public CaptionControl {
  public:
    CheckBox(Form& parent, std::string name, const Design& design, int index = -1);
    std::string_view TypeName() const override { return "CheckBox"; }
    Property<int> Value;  // 0 unticked, 1 ticked, 2 neither
    /// Drawn as a button that stays down.
    bool ButtonLike() const { return style_ == 1; }
    std::function<void()> Click;

    bool TakesFocus() const override { return true; }
    void PropertyChanged(const PropertyBase& property) override;
    void InputClick();

  private:
    int style_;
};

/// One of the options of its container: at most one is on.
class OptionButton final : public CaptionControl {
  public:
    OptionButton(Form& parent, std::string name, const Design& design, int index = -1);
    std::string_view TypeName() const override { return "OptionButton"; }
    Property<bool> Value;
    std::function<void()> Click;

    bool TakesFocus() const override { return true; }
    void PropertyChanged(const PropertyBase& property) override;
    void InputClick();
};

class TextBox final : public Control {
  public:
    TextBox(Form& parent, std::string name, const Design& design, int index = -1);
    ~TextBox() override;
    std::string_view TypeName() const override { return "TextBox"; }
    Property<std::string> Text;
    Property<bool> Locked;
    Property<int> SelStart, SelLength;  // code points
    /// Column of the data source that the box shows.
    Property<std::string> DataField;
    bool MultiLine() const { return multiLine_; }
    std::function<void()> Change;

    /// Binds the box to the current row of a record set: from now on Text follows it. The record set must
    /// outlive the binding, which ends at the unload.
    void SetDataSource(adodb::Recordset* source);

    bool TakesFocus() const override { return true; }
    bool WantsEnter() const override { return multiLine_ && !Locked; }
    void PropertyChanged(const PropertyBase& property) override;
    void Reset() override;
    void InputText(const std::string& text);

  private:
    void ShowField();
    bool multiLine_;
    adodb::Recordset* source_ = nullptr;
    std::shared_ptr<void> subscription_;
};

/// A drop-down list that can't be typed in.
class ComboBox final : public Control {
  public:
    ComboBox(Form& parent, std::string name, const Design& design, int index = -1);
    std::string_view TypeName() const override { return "ComboBox"; }
    /// The selected entry, -1 for none; a change raises Click. Error 380 beyond the list.
    Property<int> ListIndex;
    std::function<void()> Click;

    void AddItem(const std::string& text);
    /// No entry and none selected; raises nothing.
    void Clear();
    int ListCount() const { return static_cast<int>(entries_.size()); }
    /// Index of the entry added last, -1 after Clear.
    int NewIndex() const { return newIndex_; }
    const std::string& List(int index) const;
    std::int32_t ItemData(int index) const;
    void SetItemData(int index, std::int32_t data);
    /// Text of the selected entry, empty when none is.
    std::string Text() const;

    bool TakesFocus() const override { return true; }
    void PropertyChanged(const PropertyBase& property) override;
    void Reset() override;
    void InputIndex(int index);

  private:
    struct Entry {
        std::string Text;
        std::int32_t Data = 0;
    };
    const Entry& At(int index) const;
    std::vector<Entry> entries_;
    int newIndex_ = -1;
};

/// A fixed picture, by the name under which the window system keeps it.
class Image final : public Control {
  public:
    Image(Form& parent, std::string name, const Design& design, int index = -1);
    std::string_view TypeName() const override { return "Image"; }
    Property<std::string> Picture;
};

/// Pictures for the headings of lists, by index from 0 or by key.
class ImageList final : public Control {
  public:
    struct Entry {
        std::string Key;
        std::string Picture;
    };
    ImageList(Form& parent, std::string name, std::vector<Entry> images);
    std::string_view TypeName() const override { return "ImageList"; }
    /// Name of the picture, empty when there is none.
    std::string PictureOf(const std::string& key) const;
    std::string PictureAt(int index) const;

  private:
    std::vector<Entry> images_;
};

/// An entry of a window's menu bar, or of the menu that is its container. The caption "-" is a separator.
class Menu final : public CaptionControl {
  public:
    Menu(Form& parent, std::string name, const Design& design, int index = -1);
    std::string_view TypeName() const override { return "Menu"; }
    /// "Ctrl+C" or empty.
    const std::string& Shortcut() const { return shortcut_; }
    std::function<void()> Click;

    void SetToolTipText(const std::string& text) override;  // menus have none: error 438
    void InputClick();

  private:
    std::string shortcut_;
};

/// Shows a chemical formula, given as plain text or as rich text; each replaces what the other set.
class oFormula final : public Control {
  public:
    oFormula(Form& parent, std::string name, const Design& design, int index = -1);
    std::string_view TypeName() const override { return "oFormula"; }

    std::string PlainText() const;
    void SetPlainText(const std::string& text);
    /// The content as RTF in the control's font; empty for an empty formula.
    std::string RichText() const;
    /// Anything that is no RTF shows as the plain text that it is.
    void SetRichText(const std::string& rtf);
    const platform::RichText& Content() const { return content_; }

    Property<bool> Locked;
    Property<int> Padding;  // space around the formula, points

    bool TakesFocus() const override { return !Locked; }
    void Reset() override;

  private:
    platform::RichText content_;
};

}  // namespace platform
