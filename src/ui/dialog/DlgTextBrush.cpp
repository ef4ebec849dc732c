#include "ui/dialog/DlgTextBrush.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include <vellora/host/Language.h>
#include <vellora/text/EffectCatalogue.h>

#include "base/ResourceIds.h"
#include "ui/controls/ControlId.h"
#include "ui/controls/TextBrushButton.h"
#include "ui/controls/UserPrompts.h"
#include "ui/dialog/BrushSettings.h"
#include "ui/skin/SkinStyle.h"

namespace vellora {
namespace {

constexpr int kMargin = 16;
constexpr int kSpacing = 8;
constexpr int kPreviewHeight = 44;

}  // namespace

CDlgTextBrush::CDlgTextBrush(TextBrushSettings* settings, const QString& baseFolder,
                             QWidget* parent)
    : CVUDFrame(dialog_id::kTextBrush, parent),
      m_caller(settings),
      m_baseFolder(baseFolder),
      m_type(new QButtonGroup(this)),
      m_mainButton(withId(new CTextBrushButton(this), brush_control::kFirstColour)),
      m_secondButton(withId(new CTextBrushButton(this), brush_control::kSecondColour)),
      m_textures(withId(new QComboBox(this), brush_control::kTextureList)) {
    setWindowTitle(QStringLiteral("Text Brush"));
    SetResizable(false);
    BuildControls();
    TranslateDialog(*this, GetDialogId());
    for (QAbstractButton* button : m_type->buttons()) {
        describe(*button, button->text());
    }
    describe(*m_mainButton, LanguageString(string_id::kChooseColour));
    describe(*m_secondButton, LanguageString(string_id::kChooseColour));
    describe(*m_textures, LanguageString(string_id::kTextures));
    Open();
    skin::applySkin(*this);
}

void CDlgTextBrush::BuildControls() {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kMargin, kMoveZone + kSpacing, kMargin, kMargin);
    layout->setSpacing(kSpacing);
    const auto add = [&](std::int32_t id, const char* text, TextBrushType type) {
        auto* radio = withId(new QRadioButton(QString::fromLatin1(text), this), id);
        m_type->addButton(radio, type);
        layout->addWidget(radio);
    };
    add(brush_control::kSolid, "Solid Color", kSolidBrush);
    add(brush_control::kGradient, "Linear Gradient", kGradientBrush);
    add(brush_control::kTexture, "Texture", kTextureBrush);
    m_textures->setMinimumWidth(260);
    layout->addWidget(m_textures);
    layout->addSpacing(kSpacing / 2);

    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(kSpacing);
    m_mainButton->setFixedHeight(kPreviewHeight);
    m_secondButton->setFixedHeight(kPreviewHeight);
    QSizePolicy policy = m_secondButton->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    m_secondButton->setSizePolicy(policy);
    buttons->addWidget(m_mainButton, 3);
    buttons->addWidget(m_secondButton, 1);
    layout->addLayout(buttons);
    layout->addSpacing(kSpacing);
    BuildCommands(*layout);

    connect(m_type, &QButtonGroup::idClicked, this, [this] { RefreshControls(); });
    connect(m_textures, &QComboBox::currentIndexChanged, this, [this] { RefreshControls(); });
    connect(m_mainButton, &QPushButton::clicked, this, &CDlgTextBrush::OnMainButton);
    connect(m_secondButton, &QPushButton::clicked, this,
            [this] { PickColour(m_settings.colour2); });
}

void CDlgTextBrush::BuildCommands(QBoxLayout& layout) {
    auto* row = new QHBoxLayout;
    row->setSpacing(kSpacing);
    auto* ok = withId(new QPushButton(QStringLiteral("OK"), this), brush_control::kOk);
    auto* cancel = withId(new QPushButton(QStringLiteral("Cancel"), this), brush_control::kCancel);
    skin::setPrimary(*ok);
    ok->setDefault(true);
    row->addStretch(1);
    row->addWidget(ok);
    row->addWidget(cancel);
    layout.addLayout(row);
    connect(ok, &QPushButton::clicked, this, &CDlgTextBrush::accept);
    connect(cancel, &QPushButton::clicked, this, &CDlgTextBrush::reject);
}

void CDlgTextBrush::Open() {
    const QStringList textures = ListTextures(m_baseFolder);
    m_settings = openingBrush(m_caller, textures);
    {
        const QSignalBlocker blocker(m_textures);
        m_textures->addItems(textures);
        m_textures->setCurrentIndex(
            static_cast<int>(textures.indexOf(m_settings.GetTextureName())));
    }
    m_type->button(m_settings.type)->setChecked(true);
    m_mainButton->SetBrush(&m_settings, TextureFolder(m_baseFolder));
    m_secondButton->SetBrush(&m_secondColour, {});
    RefreshControls();
}

void CDlgTextBrush::RefreshControls() {
    m_settings.type = m_type->checkedId();
    m_secondButton->setVisible(m_settings.type == kGradientBrush);
    m_textures->setEnabled(m_settings.type == kTextureBrush);
    if (m_settings.type == kTextureBrush) {
        m_settings.SetTextureName(m_textures->currentText());
    }
    m_secondColour = TextBrushSettings::Solid(m_settings.colour2);
    m_mainButton->update();
    m_secondButton->update();
}

void CDlgTextBrush::PickColour(COLORREF& colour) {
    const auto chosen =
        userPrompts().pickColour(this, LanguageString(string_id::kChooseColour),
                                 QColor(redOf(colour), greenOf(colour), blueOf(colour)));
    if (chosen) {
        colour = makeColorRef(static_cast<unsigned>(chosen->red()),
                              static_cast<unsigned>(chosen->green()),
                              static_cast<unsigned>(chosen->blue()));
        RefreshControls();
    }
}

void CDlgTextBrush::OnMainButton() {
    if (m_settings.type == kSolidBrush) {
        PickColour(m_settings.colour);
    } else if (m_settings.type == kGradientBrush) {
        PickColour(m_settings.colour1);
    }
}

void CDlgTextBrush::accept() {
    if (m_caller != nullptr) {
        *m_caller = m_settings;
    }
    CVUDFrame::accept();
}

}  // namespace vellora
