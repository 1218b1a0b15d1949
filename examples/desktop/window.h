#pragma once

#include <tavex/SProgressPool>

#include <QMainWindow>
#include <QThreadPool>

#include <memory>
#include <utility>

class Page;
class Row;
class Task;
class QLabel;
class QMenu;
class QProgressBar;
class QStackedWidget;
class QTreeWidget;

/// A list of files whose checksums are found while it is on show.
class Window : public QMainWindow
{
    Q_OBJECT

public:
    Window();
    /// Stops what is under way.
    ~Window() override;
    Q_DISABLE_COPY_MOVE(Window)

    /// Begins to read the files at these paths.
    void addFiles(const QStringList &paths);

protected:
    void changeEvent(QEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    QAction *addAction(QMenu *menu, const char *text, const QKeySequence &shortcut = {});
    QMenu *addMenu(const char *text);
    void addLanguages(QMenu *menu);
    QWidget *makeEmptyPage();
    QWidget *makeListPage();
    void retranslate();
    void updateSummary();

    void abortAll();
    void removeEnded();
    void followTasks();
    [[nodiscard]] QList<Row *> rows() const;
    [[nodiscard]] QList<Task *> waitingTasks() const;

    /// The actions and their texts in the language of the source.
    QList<std::pair<QAction *, const char *>> m_texts;
    QAction *m_open;
    QAction *m_abortAll;
    QAction *m_removeEnded;
    QStackedWidget *m_pages;
    QLabel *m_dropHere;
    QTreeWidget *m_list;
    QLabel *m_summary;
    QProgressBar *m_total;
    Page *m_system;
    Page *m_legal;

    QThreadPool m_threads;
    std::unique_ptr<Quorvex::SProgressPool> m_pool;
};
