// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <stdexcept>

namespace vx3260 {

/// The errors that number conversions and array accesses raise. The text is what the user reads.
class RuntimeError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// A number does not fit the type it is converted to.
class OverflowError : public RuntimeError {
  public:
    OverflowError() : RuntimeError("Overflow") {}
};

/// A text is not the number it is used as.
class TypeMismatchError : public RuntimeError {
  public:
    TypeMismatchError() : RuntimeError("Type mismatch") {}
};

/// An array index, or the size asked for, is outside what the array can have.
class SubscriptError : public RuntimeError {
  public:
    SubscriptError() : RuntimeError("Subscript out of range") {}
};

}  // namespace vx3260
