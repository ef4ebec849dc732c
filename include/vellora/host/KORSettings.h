#pragma once

/// @file
/// Stored settings.

#include <QString>

#include <vellora/base/Export.h>

class QSettings;

namespace vellora {

namespace Quillon {

/// What an exchange with a store does.
enum class SettingsExchange { Read, Write, Reset };

/// Values that are kept in a store between runs of a program.
class VELLORA_EXPORT CSettings {
public:
    virtual ~CSettings() = default;

    /// Reads the values from the store or writes them to it; a reset gives them their defaults
    /// and leaves the store alone.
    virtual void Exchange(QSettings& store, SettingsExchange direction) = 0;
};

}  // namespace Quillon

/// The module's settings.
class VELLORA_EXPORT CKORSettings : public Quillon::CSettings {
public:
    CKORSettings();
    ~CKORSettings() override;

    /// A value that cannot be read has its default afterwards.
    void Exchange(QSettings& store, Quillon::SettingsExchange direction) override;

    /// The language choice, stored as "language". "auto" leaves it to the host.
    QString language;
};

}  // namespace vellora
