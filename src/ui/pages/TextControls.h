#pragma once

#include <QString>

#include <vellora/text/TextStyle.h>

namespace vellora {

/// What the controls of the text page say about a text.
struct TextControls {
    QString font;
    int size = 0;
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool shadow = false;

    friend bool operator==(const TextControls&, const TextControls&) = default;
};

/// What the controls show for the properties of a text: what is drawn, which is its effect.
TextControls controlsOf(const TextStyle& style);

/// Carries a change of the controls over to the properties. Only what differs between `before`
/// and `after` is touched, so that a value the controls cannot show is kept.
void applyControls(TextStyle& style, const TextControls& before, const TextControls& after);

/// Gives a text another effect; it keeps its font and size.
void applyEffect(TextStyle& style, const TextEffectRecord& effect);

/// Gives a text another face.
void applyFace(TextStyle& style, const TextBrushSettings& face);

/// Whether a text has an effect, whatever its font and size.
bool hasEffect(const TextStyle& style, const TextEffectRecord& effect);

}  // namespace vellora
