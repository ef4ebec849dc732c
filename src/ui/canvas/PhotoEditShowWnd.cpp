#include "ui/canvas/PhotoEditShowWnd.h"

#include <QPainter>

#include <vellora/base/Types.h>

#include "ui/EditSession.h"
#include "ui/canvas/CanvasLayers.h"

namespace vellora {

CPhotoEditShowWnd::CPhotoEditShowWnd(EditSession& session, QWidget* parent)
    : QWidget(parent), m_session(session), m_layers(std::make_unique<CanvasLayers>(session)) {
    setFixedSize(kStageWidth, kStageHeight);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    connect(&session, &EditSession::photoChanged, this, &CPhotoEditShowWnd::OnPhotoChanged);
    connect(&session, &EditSession::edited, this, &CPhotoEditShowWnd::OnEdited);
}

CPhotoEditShowWnd::~CPhotoEditShowWnd() = default;

QSize CPhotoEditShowWnd::sizeHint() const {
    return {kStageWidth, kStageHeight};
}

void CPhotoEditShowWnd::Redraw() {
    m_layers->invalidatePhoto();
    update();
}

void CPhotoEditShowWnd::PictureCommitted() {
    Redraw();
}

void CPhotoEditShowWnd::OnPhotoChanged() {
    Redraw();
}

void CPhotoEditShowWnd::OnEdited(PhotoEdit kind) {
    if (kind == PhotoEdit::Picture) {
        Redraw();
    } else {
        m_layers->invalidateSprites();
        update();
    }
}

void CPhotoEditShowWnd::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.drawImage(rect(), m_layers->composed(devicePixelRatioF()));
}

}  // namespace vellora
