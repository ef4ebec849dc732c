#pragma once

#include <QMainWindow>
#include <optional>

#include "desktop/Preferences.h"
#include "desktop/RenderQueue.h"
#include "desktop/Thumbnails.h"

class QAction;
class QLabel;
class QMenu;
class QToolBar;

namespace vellora::desktop {

class Autosave;
class ShowDocument;
class SlideView;

/// The window of one show.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    MainWindow();
    ~MainWindow() override;

    /// Opens a show, or adds photos, as named on the command line.
    void openPaths(const QStringList& paths);
    /// Offers what a crash left behind of shows that were never saved.
    void offerOrphans();

    [[nodiscard]] ShowDocument& document() { return *m_document; }
    [[nodiscard]] SlideView& view() { return *m_view; }

protected:
    void closeEvent(QCloseEvent* event) override;
    /// Takes the edit dialog's notifications: the photo's thumbnail is made anew.
    void customEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    /// Speaks another language at once.
    void changeEvent(QEvent* event) override;

private:
    /// Makes menus and toolbar, replacing those of another language.
    void createActions();
    void createFileMenu();
    void createEditMenu();
    void createToolBar();
    QAction* action(QMenu* menu, const QString& text, const QKeySequence& key,
                    void (MainWindow::*slot)());
    void fillRecentMenu();
    void showContextMenu(QPoint point);
    void updateState();
    void applyPreferences();
    /// Thumbnails have the pixels of the screen that the window is on.
    void sizeThumbnails();
    /// No thumbnail is made any more for slides that were scrolled away.
    void forgetUnseen();
    void report(const QString& title, const QString& text, const QStringList& details);

    /// @return False when changes are only in the memory.
    bool autosave();
    /// Ends slideshows that play; their threads render the photos of the show.
    void stopPlaying();
    /// What the work gives, done while no thumbnail is rendered.
    template <class Work>
    auto paused(Work work) {
        const RenderQueue::Pause pause(m_thumbnails->queue());
        return work();
    }

    void newShow();
    void openDialog();
    void open(const QString& path);
    /// Offers the automatic copies of a show, the newest first, as long as the user refuses them.
    void offerCopies(const QString& show);
    enum class Decision { Taken, Refused, Later };
    Decision recover(const QString& copy, const QString& show);
    void takeCopy(const QString& copy, const QString& show);
    bool save();
    bool saveAs();
    void saveAction();
    void saveAsAction();
    bool saveTo(const QString& path);
    /// Asks what becomes of unsaved changes.
    /// @return False when the user wants to stay.
    bool mayLeaveShow();

    void addPhotos();
    /// @param refused  Named along with the files that are no photos.
    void addFiles(const QStringList& paths, int row, QStringList refused = {});
    void removeSelected();
    void undo();
    void redo();
    /// Move the selected photos by one place.
    void moveBack();
    void moveForward();
    /// Edits a photo, or asks where it is.
    void activateSlide(const QModelIndex& index);
    void locateSelected();
    void editSelected();
    void exportShow();
    void play();
    void editPreferences();
    void about();

    Preferences m_preferences;
    ShowDocument* m_document;
    Autosave* m_autosave;
    Thumbnails* m_thumbnails;
    std::optional<RenderQueue::Pause> m_pause;
    SlideView* m_view;
    QMenu* m_recent = nullptr;
    QToolBar* m_bar = nullptr;
    QLabel* m_count;
    struct {
        QAction *create, *open, *save, *exporting;
        QAction *undo, *redo, *back, *forward;
        QAction *add, *edit, *remove, *locate, *selectAll;
        QAction* play;
    } m_actions{};
};

}  // namespace vellora::desktop
