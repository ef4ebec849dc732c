#pragma once

class QPainter;

namespace vellora {

class CDVDImageSprite;
class CropFrame;

/// What lies over the picture on the canvas, in stage units.
void drawSelection(QPainter& painter, const CDVDImageSprite& sprite);
/// Darkens what the crop leaves out, and draws the frame with its thirds and handles.
void drawCropFrame(QPainter& painter, const CropFrame& frame);
/// Shows that the canvas has the keyboard.
void drawFocusFrame(QPainter& painter);

}  // namespace vellora
