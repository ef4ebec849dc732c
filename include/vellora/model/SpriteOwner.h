#pragma once

/// @file
/// What the records that hold sprites have in common.

#include <vellora/base/Export.h>

namespace vellora {

/// Names a class at run time.
struct CRuntimeClass {
    const char* m_lpszClassName;
};

/// A record that owns sprites: a photo's edit record or the album.
class VELLORA_EXPORT CSpriteOwner {
public:
    virtual ~CSpriteOwner() = default;
    CSpriteOwner(const CSpriteOwner&) = delete;
    CSpriteOwner& operator=(const CSpriteOwner&) = delete;

    [[nodiscard]] virtual const CRuntimeClass* GetRuntimeClass() const = 0;

    /// Records that a sprite of this owner has changed.
    virtual void MarkChanged() { m_changed = true; }
    [[nodiscard]] bool IsChanged() const { return m_changed; }

protected:
    CSpriteOwner() = default;

private:
    bool m_changed = false;
};

}  // namespace vellora
