#include "ui/pages/PhotoCropFilter.h"

#include <QButtonGroup>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include <vellora/filters/FilterCatalogue.h>
#include <vellora/filters/PhotoProcessor.h>
#include <vellora/host/Language.h>
#include <vellora/model/DVDImage.h>

#include "base/ResourceIds.h"
#include "ui/EditSession.h"
#include "ui/canvas/PhotoEditShowWnd.h"
#include "ui/controls/ControlId.h"
#include "ui/controls/FilterListBox.h"
#include "ui/controls/UserPrompts.h"
#include "ui/pages/FilterParameterRow.h"
#include "ui/pages/FilterThumbnails.h"
#include "ui/skin/SkinStyle.h"

namespace vellora {
namespace {

constexpr int kPageLineThin = 1;
constexpr int kFilterIndexRole = Qt::UserRole;
constexpr int kAdjustmentCategory = 0;
constexpr int kArtCategory = 1;

/// The switch shows both kinds of filter in one list; "None" heads each of them.
bool isListed(const COpencvFilterInterface& filter, std::size_t index, int category) {
    return index == 0 || filter.is_art_effect == category;
}

}  // namespace

CPhotoCropFilter::CPhotoCropFilter(EditSession& session, CPhotoEditShowWnd& canvas, QWidget* parent)
    : CEditPage(dialog_id::kCropFilterPage, kPageLineThin, parent),
      m_session(session),
      m_canvas(canvas),
      m_crop(new QButtonGroup(this)),
      m_category(new QButtonGroup(this)),
      m_list(withId(new CFilterListBox(kThumbnailSide, this), 3037)) {
    for (const COpencvFilterInterface* prototype : GetFilterPrototypes()) {
        m_filters.emplace_back(prototype->Clone());
    }
    setWindowTitle(QStringLiteral("Crop and Filter"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kPageMargin, kPageMargin - 4, kPageMargin, kPageMargin);
    layout->setSpacing(kPageSpacing);
    BuildCropGroup(*layout);
    BuildFilterGroup(*layout);
    BuildCommands(*layout);
    Translate();
    for (QAbstractButton* button : findChildren<QAbstractButton*>()) {
        describe(*button, button->text());
    }
    describe(*m_list, LanguageString(string_id::kFilters));
    FillList();
    connect(&canvas, &CPhotoEditShowWnd::CropFrameDropped, this, &CPhotoCropFilter::DropCropFrame);
}

CPhotoCropFilter::~CPhotoCropFilter() {
    if (m_session.record() != nullptr) {
        m_session.record()->GetProcessor()->SetCurrentFilter(nullptr);
    }
}

void CPhotoCropFilter::BuildCropGroup(QBoxLayout& page) {
    auto* group = withId(new QGroupBox(QStringLiteral("Crop"), this), 3031);
    auto* grid = new QGridLayout(group);
    grid->setContentsMargins(0, 2, 0, 2);
    grid->setVerticalSpacing(kPageSpacing / 2);
    const auto add = [&](int id, const char* text, CropMode mode, int row, int column) {
        auto* radio = withId(new QRadioButton(QString::fromLatin1(text), group), id);
        radio->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
        m_crop->addButton(radio, mode);
        grid->addWidget(radio, row, column);
    };
    add(3032, "No Change", kCropNone, 0, 0);
    add(3033, "Keep (4:3) Aspect", kCropFourToThree, 0, 1);
    add(3035, "Manual", kCropManual, 1, 0);
    add(3034, "Keep (16:9) Aspect", kCropSixteenToNine, 1, 1);
    grid->setColumnStretch(0, 2);
    grid->setColumnStretch(1, 3);
    m_crop->button(kCropNone)->setChecked(true);
    connect(m_crop, &QButtonGroup::idToggled, this, [this](int mode, bool checked) {
        if (checked) {
            OnCropModeChosen(mode);
        }
    });
    page.addWidget(group);
}

void CPhotoCropFilter::BuildFilterGroup(QBoxLayout& page) {
    auto* group = withId(new QGroupBox(QStringLiteral("Filter"), this), 3036);
    auto* layout = new QVBoxLayout(group);
    layout->setContentsMargins(0, 2, 0, 0);
    layout->setSpacing(kPageSpacing / 2);

    auto* categories = new QHBoxLayout;
    categories->setSpacing(kPageSpacing / 2);
    const auto add = [&](std::int32_t id, const char* text, int category) {
        auto* button = withId(new QPushButton(QString::fromLatin1(text), group), id);
        button->setCheckable(true);
        button->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
        m_category->addButton(button, category);
        categories->addWidget(button, 1);
    };
    add(filter_control::kAdjustments, "Adjustments", kAdjustmentCategory);
    add(filter_control::kArtEffects, "Art Effects", kArtCategory);
    m_category->button(kAdjustmentCategory)->setChecked(true);
    connect(m_category, &QButtonGroup::idClicked, this, [this] { FillList(); });
    layout->addLayout(categories);
    connect(m_list, &QListWidget::itemSelectionChanged, this, &CPhotoCropFilter::OnFilterSelected);
    layout->addWidget(m_list, 1);

    constexpr std::array kLabels{"VAR ONE", "VAR_TWO", "VAR_THREE"};
    for (std::size_t index = 0; index < m_rows.size(); ++index) {
        const auto offset = static_cast<std::int32_t>(index);
        m_rows[index] = new FilterParameterRow(QString::fromLatin1(kLabels[index]), 3042 + offset,
                                               3039 + offset, group);
        connect(m_rows[index], &FilterParameterRow::Moved, this, &CPhotoCropFilter::OnSliderMoved);
        layout->addWidget(m_rows[index]);
    }
    page.addWidget(group, 1);
}

void CPhotoCropFilter::BuildCommands(QBoxLayout& page) {
    auto* commands = new QHBoxLayout;
    commands->setSpacing(kPageSpacing);
    const auto add = [&](int id, const char* text, int stretch) {
        auto* button = withId(new QPushButton(QString::fromLatin1(text), this), id);
        button->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
        commands->addWidget(button, stretch);
        return button;
    };
    m_restore = add(3045, "Restore To Original", 2);
    m_save = add(3025, "Save", 1);
    skin::setPrimary(*m_save);
    connect(m_restore, &QPushButton::clicked, this, &CPhotoCropFilter::OnRestore);
    connect(m_save, &QPushButton::clicked, this, &CPhotoCropFilter::OnSave);
    page.addLayout(commands);
}

void CPhotoCropFilter::FillList() {
    {
        const QSignalBlocker blocker(m_list);
        m_list->clear();
    }
    const int category = m_category->checkedId();
    for (std::size_t index = 0; index < m_filters.size(); ++index) {
        if (isListed(*m_filters[index], index, category)) {
            const QString name = LanguageWord(QString::fromUtf16(m_filters[index]->GetName()));
            auto* item = new QListWidgetItem(name, m_list);
            item->setToolTip(QStringLiteral("<span>%1</span>").arg(name.toHtmlEscaped()));
            item->setData(kFilterIndexRole, static_cast<int>(index));
        }
    }
    ShowThumbnails();
    m_list->setCurrentRow(0);
}

void CPhotoCropFilter::SetEditRecord() {
    const CDVDImage* record = m_session.record();
    const bool hasSteps = record != nullptr && (record->GetProcessor()->GetCropCount() > 0 ||
                                                record->GetProcessor()->GetFilterCount() > 0);
    setEnabled(m_session.hasPicture());
    m_commit.photoChanged(hasSteps);
    UpdateButtons();
    UpdateThumbnails();
}

void CPhotoCropFilter::DropCropFrame() {
    m_crop->button(kCropNone)->setChecked(true);
}

void CPhotoCropFilter::Refresh() {
    DropCropFrame();
    m_list->setCurrentRow(0);
    UpdateThumbnails();
}

void CPhotoCropFilter::UpdateThumbnails() {
    m_thumbnailsStale = true;
    if (isVisible()) {
        ShowThumbnails();
    }
}

void CPhotoCropFilter::showEvent(QShowEvent* event) {
    CEditPage::showEvent(event);
    ShowThumbnails();
}

void CPhotoCropFilter::ShowThumbnails() {
    if (m_thumbnailsStale && isVisible()) {
        m_thumbnails.clear();
        if (m_session.hasPicture()) {
            m_thumbnails =
                makeThumbnails(*m_session.record()->GetProcessor(), m_filters, devicePixelRatioF());
        }
        m_thumbnailsStale = false;
    }
    for (int row = 0; row < m_list->count(); ++row) {
        QListWidgetItem* item = m_list->item(row);
        const auto index = item->data(kFilterIndexRole).toUInt();
        item->setIcon(index < m_thumbnails.size() ? QIcon(m_thumbnails[index]) : QIcon());
    }
}

COpencvFilterInterface* CPhotoCropFilter::GetSelectedFilter() const {
    const int row = SelectedRow();
    if (row < 0) {
        return nullptr;
    }
    return m_filters[m_list->item(row)->data(kFilterIndexRole).toUInt()].get();
}

int CPhotoCropFilter::SelectedRow() const {
    const QList<QListWidgetItem*> selected = m_list->selectedItems();
    return selected.isEmpty() ? -1 : m_list->row(selected.first());
}

CropMode CPhotoCropFilter::ChosenCropMode() const {
    return static_cast<CropMode>(m_crop->checkedId());
}

void CPhotoCropFilter::OnFilterSelected() {
    COpencvFilterInterface* filter = GetSelectedFilter();
    if (filter == nullptr) {
        return;
    }
    m_sliders = setUpSliders(*filter);
    for (std::size_t index = 0; index < m_rows.size(); ++index) {
        m_rows[index]->SetUp(m_sliders[index]);
    }
    RestorePreview();
    m_canvas.ShowFilterMarker(filter->HasROI());
    m_canvas.Redraw();
    m_commit.filterSelected(SelectedRow(), ChosenCropMode());
    UpdateButtons();
}

void CPhotoCropFilter::RestorePreview() {
    if (m_session.record() != nullptr) {
        m_session.record()->GetProcessor()->SetCurrentFilter(GetSelectedFilter());
    }
}

void CPhotoCropFilter::OnSliderMoved() {
    for (std::size_t index = 0; index < m_rows.size(); ++index) {
        if (m_sliders[index].cell != nullptr) {
            *m_sliders[index].cell = m_rows[index]->GetValue();
        }
    }
    m_canvas.Redraw();
}

void CPhotoCropFilter::OnCropModeChosen(int mode) {
    m_canvas.SetCropMode(mode);
    m_commit.cropModeChosen(static_cast<CropMode>(mode), SelectedRow());
    UpdateButtons();
}

void CPhotoCropFilter::OnSave() {
    if (!m_session.hasPicture()) {
        return;
    }
    if (!m_session.commitPicture(m_canvas.GetCropFrame())) {
        const QString text = LanguageString(string_id::kSaveFailed);
        userPrompts().showError(window(), text, text);
        return;
    }
    m_canvas.PictureCommitted();
    Refresh();
    m_commit.saved();
    UpdateButtons();
}

void CPhotoCropFilter::OnRestore() {
    m_session.restoreOriginal();
    m_canvas.PictureCommitted();
    Refresh();
    m_commit.restored();
    UpdateButtons();
}

void CPhotoCropFilter::UpdateButtons() {
    m_save->setEnabled(m_commit.canSave());
    m_restore->setEnabled(m_commit.canRestore());
}

}  // namespace vellora
