#pragma once

#include <QString>

namespace vellora {

inline constexpr int kMaxTitle = 100;
inline constexpr int kMaxDescription = 1000;

/// A typed text as it may stand, and what had to be done to it.
struct CheckedText {
    QString text;
    bool removedCharacters = false;  ///< Characters that a title cannot contain were removed.
    bool shortened = false;          ///< It was too long.
};

/// Removes the characters that are not allowed in a title, then cuts it to its length.
CheckedText checkTitle(const QString& title);

/// Cuts a description to its length.
CheckedText checkDescription(const QString& description);

}  // namespace vellora
