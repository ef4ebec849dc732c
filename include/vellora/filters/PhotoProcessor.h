#pragma once

/// @file
/// The edited picture of one photo: decoding, crops, filters, flips and rotation.

#include <cstdint>
#include <memory>
#include <vector>

#include <vellora/base/Export.h>
#include <vellora/base/ImagePtr.h>
#include <vellora/base/PhotoListNode.h>
#include <vellora/base/Rect.h>
#include <vellora/filters/FilterInterface.h>

class QPainter;
class QString;

namespace vellora {

/// One crop step.
struct CropRecord {
    /// The rectangle in preview pixels, relative to the corner of the picture as it is shown on
    /// the 600 x 450 stage when the step is made.
    std::int32_t x = 0;
    std::int32_t y = 0;
    std::int32_t width = 0;
    std::int32_t height = 0;
    bool FlipX = false;      ///< The photo was mirrored left to right when the crop was made.
    bool FlipY = false;      ///< The photo was mirrored upside down when the crop was made.
    std::int32_t angle = 0;  ///< The photo's quarter-turn angle when the crop was made.

    friend bool operator==(const CropRecord&, const CropRecord&) = default;
};

/// The picture that a processor has built, with all that belongs to it. Only the processor looks
/// inside.
class VELLORA_EXPORT BuiltPicture {
    friend class CPhotoProcessor;

    /// What a replay of recorded edits covers, and the flips and the angle that it ends with.
    struct Extent {
        std::size_t crops = 0;
        std::size_t filters = 0;
        bool flipX = false;
        bool flipY = false;
        std::int32_t angle = 0;
    };
    /// One thing that was done to the picture itself.
    struct Step {
        enum class Kind { FlipX, FlipY, Turn, Filter, Crop };
        Kind kind;
        int value;  ///< Degrees of a turn, index of a filter or crop.
    };

    void add(Step::Kind kind, int value = 0);

    bool scaled = false;
    bool damaged = false;
    float previewFactor = 1.0F;  ///< Photo pixels per preview pixel.
    ImagePtr working;
    /// The decoded photo. Kept for previews, where edits are taken back; a full-size picture is
    /// the decoded photo itself, edited in place.
    ImagePtr source;
    Extent replayed;          ///< What the picture was built from.
    std::vector<Step> since;  ///< What was done to it after that.
};

/// Owns the decoded picture of one photo, its crop steps and its filter chain, and rebuilds the
/// edited picture from the photo file by replaying them.
///
/// Operations on a missing picture do nothing. Threads: one at a time; while other threads render
/// the same photo, the image-buffer lock of `GetOutImg` and `ReleaseImgBuf` is what orders them.
class VELLORA_EXPORT CPhotoProcessor {
public:
    CPhotoProcessor();
    ~CPhotoProcessor();
    CPhotoProcessor(const CPhotoProcessor&) = delete;
    CPhotoProcessor& operator=(const CPhotoProcessor&) = delete;

    /// Stores the host record that supplies path, flips and rotation; it is not owned.
    void SetNode(_PHOTO_LIST_NODE* node);
    [[nodiscard]] _PHOTO_LIST_NODE* GetNode() const { return m_node; }

    /// Decodes the photo and replays crops, filters, flips and rotation.
    ///
    /// Does nothing while there is a working image, or without a record with a path. A photo that
    /// cannot be decoded leaves no working image.
    ///
    /// @param scaled  Build the picture reduced to the preview size.
    void Rebuild(bool scaled);
    /// Drops the pictures and the current filter; crops and chain stay.
    void ReleaseImages();
    /// Hands the picture out, so that another can be built; crops and chain stay, and so does the
    /// current filter.
    [[nodiscard]] BuiltPicture TakePicture();
    /// Puts a picture in the place of the one that is there.
    void PutPicture(BuiltPicture picture);

    [[nodiscard]] int GetWidth() const;   ///< Of the working image; 0 when there is none.
    [[nodiscard]] int GetHeight() const;  ///< Of the working image; 0 when there is none.
    /// The working image, still owned by the processor, or null.
    [[nodiscard]] const IplImage* GetWorking() const { return m_built.working.get(); }
    /// Whether the photo file ended early or held damaged data when it was decoded last.
    [[nodiscard]] bool IsDamaged() const { return m_built.damaged; }
    /// Whether the working image was built for the preview.
    [[nodiscard]] bool IsScaled() const { return m_built.scaled; }

    void FlipWorkingX();  ///< Mirrors the picture left to right and marks the photo changed.
    void FlipWorkingY();  ///< Mirrors the picture upside down and marks the photo changed.
    void ToggleFlipX();   ///< Inverts the record's flag, then mirrors the picture.
    void ToggleFlipY();   ///< Inverts the record's flag, then mirrors the picture.
    void RotateLeft();    ///< Turns record and picture by a quarter, counter-clockwise.
    void RotateRight();   ///< Turns record and picture by a quarter, clockwise.
    /// Turns the picture by 90, 180 or 270 degrees; any other value does nothing.
    void RotateQuarter(int degrees);

    /// A reduced copy that fits the given box, owned by the caller; null without a picture or
    /// when a side would vanish.
    [[nodiscard]] ImagePtr FitCopy(int maxWidth, int maxHeight) const;

    /// The edited picture with more pixels than the preview has, for surfaces that can show them.
    ///
    /// @param detail  Wanted pixels for each pixel of the preview, in each direction.
    /// @return A new picture, owned by the caller, with as many as the photo gives; null when it
    ///         gives no more than the preview has, and for a picture that is no preview.
    [[nodiscard]] ImagePtr MakeDetailed(double detail);

    /// Draws the picture into a rectangle of the painter's coordinates.
    ///
    /// A preview picture is shown with the current filter applied to a copy. Where rectangle and
    /// picture differ by less than 2 in each direction, the picture is drawn unscaled at the
    /// rectangle's top-left corner. Of a rectangle that lies mostly beyond the painter's surface
    /// only the visible part is made.
    void DrawTo(QPainter& painter, const Rect& rect);

    /// Applies the current filter to a picture as the preview shows it, recording nothing.
    void ApplyPreview(ImagePtr& picture) const;

    /// The filter selected for the preview; not owned.
    void SetCurrentFilter(COpencvFilterInterface* filter) { m_currentFilter = filter; }
    [[nodiscard]] COpencvFilterInterface* GetCurrentFilter() const { return m_currentFilter; }
    /// Sets the region that previews of region filters use; module-wide. A filter that was
    /// previewed keeps it when it is applied.
    static void SetPreviewROI(float x, float y, float cx, float cy);

    /// Applies the current filter to the picture and appends a clone of it to the chain. Nothing
    /// to do without a current filter or with "None".
    /// @return False when the filter could not be recorded.
    bool ApplyCurrentFilter();
    /// Appends a filter to the chain without applying it; takes ownership, ignores null.
    void AddFilterToChain(COpencvFilterInterface* filter);
    /// Appends a crop step without cutting the picture, as a loaded file does.
    void AddCropRecord(const CropRecord& record);
    /// Applies the current filter, then cuts out a rectangle and records the step.
    ///
    /// @param x, y, width, height  In preview pixels, relative to the corner of the picture as it
    ///        is shown on the stage. Without a positive size or with a negative corner nothing is
    ///        cut or recorded.
    /// @return False when the filter could not be recorded or the picture could not be cut.
    bool Crop(int x, int y, int width, int height);
    /// Drops all filters and crops and rebuilds the picture with the photo's flips and rotation.
    void RestoreOriginal();

    [[nodiscard]] int GetCropCount() const { return static_cast<int>(m_crops.size()); }
    [[nodiscard]] int GetFilterCount() const { return static_cast<int>(m_chain.size()); }
    /// A crop step, or null for an index without one.
    [[nodiscard]] const CropRecord* GetCrop(int index) const;
    /// A filter of the chain, or null for an index without one.
    [[nodiscard]] COpencvFilterInterface* GetFilter(int index) const;

private:
    /// Flips and angle that the picture has reached during a replay.
    struct State {
        bool flipX = false;
        bool flipY = false;
        std::int32_t angle = 0;
    };

    bool DecodeSource();
    bool LoadWithGdiplus(const QString& path);
    void MakeWorkingFromSource();
    [[nodiscard]] BuiltPicture::Extent RecordedEdits() const;
    void Replay(const BuiltPicture::Extent& extent);
    void RepeatStep(const BuiltPicture::Step& step);
    void BringTo(State& state, bool flipX, bool flipY, std::int32_t angle);
    void BringToEnd(State& state, const BuiltPicture::Extent& extent);
    void ApplyFiltersUpTo(State& state, std::size_t& next, std::size_t end, std::int32_t cropStep);
    void CutRecordedCrop(const CropRecord& record);
    bool CutWorking(const Rect& pixels);
    void ApplyToWorking(COpencvFilterInterface& filter);

    _PHOTO_LIST_NODE* m_node = nullptr;
    BuiltPicture m_built;
    COpencvFilterInterface* m_currentFilter = nullptr;
    std::vector<std::unique_ptr<COpencvFilterInterface>> m_chain;
    std::vector<CropRecord> m_crops;
};

}  // namespace vellora
