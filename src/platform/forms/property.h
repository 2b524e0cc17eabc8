// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <ostream>
#include <utility>
#include <vector>

namespace platform {

class PropertyBase;

/// What owns properties: it brings them back to their design-time values and hears of every change.
class PropertyOwner {
  public:
    virtual ~PropertyOwner() = default;
    /// A property has a new value; what the control raises or redraws follows from it.
    virtual void PropertyChanged(const PropertyBase& property) = 0;

  protected:
    void ResetProperties();

  private:
    friend class PropertyBase;
    std::vector<PropertyBase*> properties_;
};

class PropertyBase {
  public:
    explicit PropertyBase(PropertyOwner& owner) : owner_(owner) { owner.properties_.push_back(this); }
    PropertyBase(const PropertyBase&) = delete;
    PropertyBase& operator=(const PropertyBase&) = delete;
    virtual ~PropertyBase() = default;
    /// Back to the design-time value, silently.
    virtual void Reset() = 0;

  protected:
    PropertyOwner& owner_;
};

inline void PropertyOwner::ResetProperties() {
    for (PropertyBase* property : properties_) {
        property->Reset();
    }
}

/// A property of a control or window: reads and assigns like a variable of type T, and tells its owner when
/// an assignment changed it.
template <class T>
class Property final : public PropertyBase {
  public:
    Property(PropertyOwner& owner, T design)
        : PropertyBase(owner), design_(std::move(design)), value_(design_) {}

    const T& Get() const { return value_; }
    operator const T&() const { return value_; }
    const T* operator->() const { return &value_; }

    Property& operator=(T value) {
        if (!(value == value_)) {
            value_ = std::move(value);
            owner_.PropertyChanged(*this);
        }
        return *this;
    }
    Property& operator=(const Property& other) { return *this = other.value_; }

    /// Takes a value that the view already shows or that the owner itself computes: no notice is given.
    void SetSilently(T value) { value_ = std::move(value); }
    void Reset() override { value_ = design_; }
    const T& Design() const { return design_; }

    friend bool operator==(const Property& left, const T& right) { return left.value_ == right; }
    friend std::ostream& operator<<(std::ostream& out, const Property& property) requires
        requires(std::ostream& o, const T& v) {
        o << v;
    }
    { return out << property.value_; }

  private:
    T design_;
    T value_;
};

}  // namespace platform
