#include "ui/pages/PhotoEditOperTextPage.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

#include <vellora/host/Language.h>

#include "base/ResourceIds.h"
#include "ui/canvas/PhotoEditShowWnd.h"
#include "ui/controls/ControlId.h"
#include "ui/controls/FontPreviewCombo.h"
#include "ui/controls/TextBrushButton.h"
#include "ui/controls/TextEffectListBox.h"
#include "ui/controls/TransparentStatic.h"
#include "ui/dialog/DlgTextBrush.h"
#include "ui/pages/TextMacroMenu.h"
#include "ui/skin/SkinIcons.h"
#include "ui/skin/SkinStyle.h"

namespace vellora {
namespace {

constexpr int kMaxSize = 1000;

}  // namespace

CPhotoEditOperTextPage::CPhotoEditOperTextPage(CPhotoEditShowWnd& canvas, const QString& baseFolder,
                                               QWidget* parent)
    : CEditPage(dialog_id::kTextPage, kPageLine, parent),
      m_canvas(canvas),
      m_baseFolder(baseFolder),
      m_style(canvas.GetTextProperties()),
      m_font(withId(new CFontPreviewCombo(this), 1210)),
      m_size(withId(new QSpinBox(this), 1228)),
      m_brush(withId(new CTextBrushButton(this), 1454)),
      m_bold(withId(new QPushButton(QStringLiteral("B"), this), 1229)),
      m_italic(withId(new QPushButton(QStringLiteral("I"), this), 1230)),
      m_underline(withId(new QPushButton(QStringLiteral("U"), this), 1231)),
      m_shadow(withId(new QCheckBox(QStringLiteral("Shadow"), this), 1179)),
      m_effects(withId(new CTextEffectListBox(this), 1021)) {
    BuildControls();
    m_loading = true;
    m_effects->LoadEffectCatalogue(baseFolder);
    m_loading = false;
    m_brush->SetBrush(&m_style.effect.face, TextureFolder(baseFolder));
    Connect();
    LoadProperties();
    if (m_effects->selectedItems().isEmpty() && m_effects->count() > 0) {
        // Offered, not applied.
        m_loading = true;
        m_effects->setCurrentRow(0);
        m_loading = false;
    }
}

void CPhotoEditOperTextPage::BuildControls() {
    setWindowTitle(QStringLiteral("Text"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kPageMargin, kPageMargin, kPageMargin, kPageMargin);
    layout->setSpacing(kPageSpacing - 2);
    BuildFontRow(*layout);
    BuildStyleRow(*layout);
    layout->addWidget(m_effects, 1);
    BuildCommands(*layout);
    m_brush->setText(QStringLiteral("Brush"));
    Translate();
    DescribeControls();
}

void CPhotoEditOperTextPage::BuildFontRow(QBoxLayout& page) {
    auto* label = withId(new CTransparentStatic(QStringLiteral("Name:"), this), 3026);
    label->setBuddy(m_font);
    withId(m_size->findChild<QLineEdit*>(), 1223);
    m_size->setRange(1, kMaxSize);
    auto* row = new QHBoxLayout;
    row->setSpacing(kPageSpacing);
    row->addWidget(label);
    row->addWidget(m_font, 1);
    row->addWidget(m_size);
    page.addLayout(row);
}

void CPhotoEditOperTextPage::BuildStyleRow(QBoxLayout& page) {
    auto* row = new QHBoxLayout;
    row->setSpacing(kPageSpacing / 2);
    QFont bold(font());
    bold.setBold(true);
    m_bold->setFont(bold);
    QFont italic(font());
    italic.setItalic(true);
    m_italic->setFont(italic);
    QFont underline(font());
    underline.setUnderline(true);
    m_underline->setFont(underline);
    for (QPushButton* button : {m_bold, m_italic, m_underline}) {
        button->setCheckable(true);
        button->setFixedWidth(std::max(30, button->fontMetrics().height() * 2));
        row->addWidget(button);
    }
    row->addSpacing(kPageSpacing);
    row->addWidget(m_shadow, 1);
    row->addWidget(m_brush);
    page.addLayout(row);
}

void CPhotoEditOperTextPage::BuildCommands(QBoxLayout& page) {
    auto* column = new QVBoxLayout;
    column->setSpacing(kPageSpacing / 2);
    const auto add = [&](int id, const char* text, skin::Icon icon) {
        auto* button = withId(new QPushButton(QString::fromLatin1(text), this), id);
        button->setIcon(skin::makeIcon(icon));
        button->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
        column->addWidget(button);
        return button;
    };
    m_addText = add(1258, "Add Text", skin::Icon::AddText);
    m_addMacros = add(1259, "Add Macros Text", skin::Icon::Macro);
    m_toAll = add(1358, "Add Selected to All", skin::Icon::Album);
    m_delete = add(1385, "Delete Selected Object", skin::Icon::Delete);
    skin::setPrimary(*m_addText);
    page.addLayout(column);
}

void CPhotoEditOperTextPage::DescribeControls() {
    describe(*m_font, controlWithId<CTransparentStatic>(*this, 3026)->text());
    describe(*m_size, LanguageString(string_id::kFontSizeHint));
    describe(*m_bold, LanguageString(string_id::kBold));
    describe(*m_italic, LanguageString(string_id::kItalic));
    describe(*m_underline, LanguageString(string_id::kUnderline));
    describe(*m_effects, LanguageString(string_id::kTextStyles));
    for (QAbstractButton* button : std::initializer_list<QAbstractButton*>{
             m_shadow, m_brush, m_addText, m_addMacros, m_toAll, m_delete}) {
        describe(*button, button->text());
    }
}

void CPhotoEditOperTextPage::Connect() {
    const auto changed = [this] { OnPropertyChanged(); };
    connect(m_font, &QComboBox::currentTextChanged, this, changed);
    connect(m_size, &QSpinBox::valueChanged, this, changed);
    for (QAbstractButton* button :
         std::initializer_list<QAbstractButton*>{m_bold, m_italic, m_underline, m_shadow}) {
        connect(button, &QAbstractButton::toggled, this, changed);
    }
    connect(m_effects, &QListWidget::itemSelectionChanged, this,
            &CPhotoEditOperTextPage::OnEffectSelected);
    // A click on the style that is selected already applies it too.
    connect(m_effects, &QListWidget::itemClicked, this, &CPhotoEditOperTextPage::OnEffectSelected);
    connect(m_effects, &QListWidget::itemDoubleClicked, this,
            &CPhotoEditOperTextPage::OnEffectDoubleClicked);
    connect(m_brush, &QPushButton::clicked, this, &CPhotoEditOperTextPage::OnBrush);
    connect(m_addText, &QPushButton::clicked, this, [this] { m_canvas.AddText(); });
    connect(m_addMacros, &QPushButton::clicked, this, &CPhotoEditOperTextPage::OnMacros);
    connect(m_toAll, &QPushButton::clicked, this, [this] { m_canvas.Command(kSpriteToAll); });
    connect(m_delete, &QPushButton::clicked, this, [this] { m_canvas.Command(kSpriteDelete); });
    connect(&m_canvas, &CPhotoEditShowWnd::TextSelected, this,
            &CPhotoEditOperTextPage::LoadProperties);
}

TextControls CPhotoEditOperTextPage::ReadControls() const {
    return {m_font->GetFontName(), m_size->value(),          m_bold->isChecked(),
            m_italic->isChecked(), m_underline->isChecked(), m_shadow->isChecked()};
}

void CPhotoEditOperTextPage::LoadProperties() {
    m_loading = true;
    m_style = m_canvas.GetTextProperties();
    const TextControls controls = controlsOf(m_style);
    m_font->SetFontName(controls.font);
    m_size->setValue(controls.size);
    m_bold->setChecked(controls.bold);
    m_italic->setChecked(controls.italic);
    m_underline->setChecked(controls.underline);
    m_shadow->setChecked(controls.shadow);
    m_shown = ReadControls();
    ShowEffect();
    m_brush->update();
    m_loading = false;
}

void CPhotoEditOperTextPage::ShowEffect() {
    m_effects->clearSelection();
    for (int row = 0; row < m_effects->count(); ++row) {
        if (hasEffect(m_style, *m_effects->GetEffect(row))) {
            m_effects->setCurrentRow(row);
            return;
        }
    }
}

void CPhotoEditOperTextPage::OnPropertyChanged() {
    if (m_loading) {
        return;
    }
    const TextControls controls = ReadControls();
    applyControls(m_style, m_shown, controls);
    m_shown = controls;
    Post();
}

void CPhotoEditOperTextPage::OnEffectSelected() {
    const auto selected = m_effects->selectedItems();
    if (m_loading || selected.isEmpty()) {
        return;
    }
    const TextEffectRecord* effect = m_effects->GetEffect(m_effects->row(selected.first()));
    if (effect != nullptr && !hasEffect(m_style, *effect)) {
        applyEffect(m_style, *effect);
        Post();
        LoadProperties();
    }
}

void CPhotoEditOperTextPage::OnEffectDoubleClicked() {
    OnEffectSelected();
    if (!m_canvas.IsEditorOpen()) {
        m_canvas.AddText();
    }
}

void CPhotoEditOperTextPage::OnBrush() {
    TextBrushSettings face = m_style.effect.face;
    CDlgTextBrush dialog(&face, m_baseFolder, window());
    if (dialog.exec() == QDialog::Accepted) {
        applyFace(m_style, face);
        m_brush->update();
        Post();
    }
}

void CPhotoEditOperTextPage::OnMacros() {
    QMenu menu(this);
    fillMacroMenu(menu);
    skin::applySkin(menu);
    const QAction* chosen = menu.exec(m_addMacros->mapToGlobal(m_addMacros->rect().bottomLeft()));
    if (chosen != nullptr) {
        Q_EMIT MacroCommand(chosen->property(kCommandIdProperty).toInt());
    }
}

void CPhotoEditOperTextPage::Post() {
    m_canvas.SetTextProperties(m_style);
}

}  // namespace vellora
