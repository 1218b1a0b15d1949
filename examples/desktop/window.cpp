#include "window.h"

#include "languages.h"
#include "page.h"
#include "task.h"
#include "text.h"

#include <tavex/SLocale>
#include <tavex/SThreading>
#include <tavex/TavexApplication>

#include <QActionGroup>
#include <QApplication>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMenuBar>
#include <QMimeData>
#include <QProgressBar>
#include <QStackedWidget>
#include <QStyledItemDelegate>
#include <QToolButton>
#include <QTreeWidget>
#include <QUrl>
#include <QVBoxLayout>

using namespace Quorvex;

namespace {

enum Column { Name, Size, Modified, Progress, Checksum, Abort, Columns };

QIcon standardIcon(QStyle::StandardPixmap icon)
{
    return QApplication::style()->standardIcon(icon);
}

/// Gives the cells room.
class Delegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    [[nodiscard]] QSize sizeHint(
        const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        const int room = option.fontMetrics.height();
        return QStyledItemDelegate::sizeHint(option, index) + QSize(room, room / 2);
    }
};

/// A button that shows its action as text.
QToolButton *makeButton(QAction *action)
{
    auto *const button = new QToolButton;
    button->setDefaultAction(action);
    button->setToolButtonStyle(Qt::ToolButtonTextOnly);
    button->setFocusPolicy(Qt::StrongFocus);
    return button;
}

} // namespace

/// The line of a task.
class Row : public QTreeWidgetItem
{
public:
    Row(QTreeWidget *list, Task *task)
        : QTreeWidgetItem(list)
        , m_task(task)
        , m_abort(new QToolButton)
    {
        auto *const bar = new QProgressBar;
        setText(Name, task->file().fileName());
        setTextAlignment(Size, Qt::AlignRight | Qt::AlignVCenter);
        setTextAlignment(Modified, Qt::AlignCenter);
        setFont(Checksum, QFontDatabase::systemFont(QFontDatabase::FixedFont));
        bar->setValue(0);
        bar->setAccessibleName(task->file().fileName());
        m_abort->setIcon(standardIcon(QStyle::SP_DialogCancelButton));
        m_abort->setAutoRaise(true);
        list->setItemWidget(this, Progress, bar);
        list->setItemWidget(this, Abort, m_abort);
        // Queued, because the signal comes on the thread that reads the file.
        QObject::connect(
            task, &Task::reportProgress, bar, &QProgressBar::setValue, Qt::QueuedConnection);
        QObject::connect(m_abort, &QToolButton::clicked, task, &Task::abort);
        update();
    }

    [[nodiscard]] Task *task() const { return m_task; }

    /// Shows how the task is, in the current language.
    void update()
    {
        const QFileInfo &file = m_task->file();
        setToolTip(Name, QDir::toNativeSeparators(QDir::current().filePath(file.filePath())));
        if (file.exists()) {
            const QLocale locale;
            setText(Size, readableSize(file.size(), locale));
            setText(Modified, locale.toString(file.lastModified(), QLocale::ShortFormat));
        }
        switch (m_task->state()) {
        case Task::State::Waiting:
            m_abort->setToolTip(Window::tr("Abort"));
            m_abort->setAccessibleName(Window::tr("Abort %1").arg(file.fileName()));
            break;
        case Task::State::Done:
            setOutcome(Window::tr("Done"), QStyle::SP_DialogApplyButton);
            setText(Checksum, crcText(m_task->crc()));
            break;
        case Task::State::Aborted:
            setOutcome(Window::tr("Aborted"), QStyle::SP_DialogCancelButton);
            break;
        case Task::State::Failed:
            setOutcome(Window::tr("Cannot be read"), QStyle::SP_MessageBoxWarning);
            setToolTip(Progress, m_task->error());
            break;
        }
    }

private:
    /// Takes the place of the bar and the button.
    void setOutcome(const QString &text, QStyle::StandardPixmap icon)
    {
        treeWidget()->removeItemWidget(this, Progress);
        treeWidget()->removeItemWidget(this, Abort);
        setText(Progress, text);
        setIcon(Progress, standardIcon(icon));
    }

    Task *m_task;
    QToolButton *m_abort; ///< Until the task is over.
};

Window::Window()
    : m_pages(new QStackedWidget)
    , m_dropHere(new QLabel)
    , m_list(new QTreeWidget)
    , m_summary(new QLabel)
    , m_total(new QProgressBar)
    , m_system(new Page(&systemPage, this))
    , m_legal(new Page(&legalPage, this))
{
    QMenu *const file = addMenu(QT_TR_NOOP("&File"));
    m_open = addAction(file, QT_TR_NOOP("&Open…"), QKeySequence::Open);
    m_abortAll = addAction(file, QT_TR_NOOP("&Abort all"), Qt::Key_Escape);
    m_removeEnded = addAction(file, QT_TR_NOOP("&Remove finished"));
    file->addSeparator();
    QAction *const quit = addAction(file, QT_TR_NOOP("&Quit"), Qt::CTRL | Qt::Key_Q);
    addLanguages(addMenu(QT_TR_NOOP("&Language")));
    QMenu *const help = addMenu(QT_TR_NOOP("&Help"));
    QAction *const system = addAction(help, QT_TR_NOOP("&System information"));
    QAction *const legal = addAction(help, QT_TR_NOOP("&Legal information"));
    connect(m_open, &QAction::triggered, this,
        [this] { addFiles(QFileDialog::getOpenFileNames(this, tr("Open files"))); });
    connect(m_abortAll, &QAction::triggered, this, &Window::abortAll);
    connect(m_removeEnded, &QAction::triggered, this, &Window::removeEnded);
    connect(quit, &QAction::triggered, this, &QWidget::close);
    connect(system, &QAction::triggered, m_system, &Page::open);
    connect(legal, &QAction::triggered, m_legal, &Page::open);

    m_pages->addWidget(makeEmptyPage());
    m_pages->addWidget(makeListPage());
    setCentralWidget(m_pages);
    setAcceptDrops(true);
    m_threads.setMaxThreadCount(SThreading::defaultConcurrence());
    retranslate();
    resize(fontMetrics().averageCharWidth() * 130, fontMetrics().height() * 30);
}

Window::~Window()
{
    abortAll();
    m_threads.waitForDone();
}

void Window::addFiles(const QStringList &paths)
{
    for (const QString &path : paths) {
        auto *const task = new Task(path, this);
        auto *const row = new Row(m_list, task);
        connect(task, &Task::ended, this, [this, row] {
            row->update();
            updateSummary();
        });
        // A task that still waits for a thread ends here: run() finds it aborted.
        connect(task, &Task::aborting, this, [this, task] {
            if (m_threads.tryTake(task))
                task->run();
        });
        m_threads.start(task);
    }
    followTasks();
    updateSummary();
}

void Window::changeEvent(QEvent *event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void Window::dragEnterEvent(QDragEnterEvent *event)
{
    if (event->mimeData()->hasUrls())
        event->acceptProposedAction();
}

void Window::dropEvent(QDropEvent *event)
{
    QStringList paths;
    for (const QUrl &url : event->mimeData()->urls()) {
        if (url.isLocalFile())
            paths.append(url.toLocalFile());
    }
    event->acceptProposedAction();
    addFiles(paths);
}

QAction *Window::addAction(QMenu *menu, const char *text, const QKeySequence &shortcut)
{
    QAction *const action = menu->addAction(QString());
    action->setShortcut(shortcut);
    m_texts.append({action, text});
    return action;
}

QMenu *Window::addMenu(const char *text)
{
    QMenu *const menu = menuBar()->addMenu(QString());
    m_texts.append({menu->menuAction(), text});
    return menu;
}

void Window::addLanguages(QMenu *menu)
{
    auto *const group = new QActionGroup(this);
    for (const QLocale &locale : languages()) {
        QAction *const action = menu->addAction(QIcon(TavexApplication::flagIconName(locale)),
            SLocale::nativeLanguageName(locale), this, [locale] { setLanguage(locale); });
        action->setCheckable(true);
        connect(action, &QAction::toggled, action, [action](bool isChosen) {
            QFont font = action->font();
            font.setBold(isChosen);
            action->setFont(font);
        });
        action->setChecked(locale.language() == QLocale().language());
        group->addAction(action);
    }
}

/// What is there before the first file.
QWidget *Window::makeEmptyPage()
{
    QFont font = m_dropHere->font();
    font.setPointSizeF(font.pointSizeF() * 1.6);
    m_dropHere->setFont(font);
    m_dropHere->setForegroundRole(QPalette::PlaceholderText);

    auto *const page = new QWidget;
    auto *const layout = new QVBoxLayout(page);
    layout->addStretch();
    layout->addWidget(m_dropHere, 0, Qt::AlignCenter);
    layout->addWidget(makeButton(m_open), 0, Qt::AlignCenter);
    layout->addStretch();
    return page;
}

QWidget *Window::makeListPage()
{
    m_list->setColumnCount(Columns);
    m_list->setRootIsDecorated(false);
    m_list->setUniformRowHeights(true);
    m_list->setAllColumnsShowFocus(true);
    m_list->setItemDelegate(new Delegate(m_list));
    m_list->setAlternatingRowColors(true);
    m_list->setTextElideMode(Qt::ElideMiddle);
    m_list->header()->setStretchLastSection(false);
    m_list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_list->header()->setSectionResizeMode(Name, QHeaderView::Stretch);
    m_list->headerItem()->setTextAlignment(Size, Qt::AlignRight | Qt::AlignVCenter);
    m_list->headerItem()->setTextAlignment(Modified, Qt::AlignCenter);

    auto *const total = new QHBoxLayout;
    total->addWidget(m_summary);
    total->addWidget(m_total, 1);
    total->addWidget(makeButton(m_abortAll));
    auto *const page = new QWidget;
    auto *const layout = new QVBoxLayout(page);
    layout->addWidget(m_list);
    layout->addLayout(total);
    return page;
}

void Window::retranslate()
{
    // Widgets keep the locale that was the default one when they were made.
    setLocale(QLocale());
    setWindowTitle(tr("Checksums"));
    for (const auto &[action, text] : m_texts)
        action->setText(tr(text));
    m_dropHere->setText(tr("Drop files here"));
    m_list->setHeaderLabels({tr("Name"), tr("Size"), tr("Modified"), tr("Progress"),
        QStringLiteral("CRC-32"), QString()});
    m_list->setAccessibleName(tr("Files"));
    m_total->setAccessibleName(tr("Progress of all files"));
    for (Row *const row : rows())
        row->update();
    updateSummary();
}

void Window::updateSummary()
{
    const QList<Row *> all = rows();
    qint64 bytes = 0;
    for (const Row *const row : all)
        bytes += row->task()->file().size();
    const qsizetype waiting = waitingTasks().size();
    m_summary->setText(
        Text::tr("%n file(s), %1", nullptr, int(all.size())).arg(readableSize(bytes, QLocale())));
    m_abortAll->setEnabled(waiting > 0);
    m_removeEnded->setEnabled(waiting < all.size());
    m_pages->setCurrentIndex(all.isEmpty() ? 0 : 1);
}

void Window::abortAll()
{
    for (Task *const task : waitingTasks())
        task->abort();
}

void Window::removeEnded()
{
    for (Row *const row : rows()) {
        if (row->task()->state() != Task::State::Waiting) {
            delete row->task();
            delete row;
        }
    }
    updateSummary();
}

/// Lets the bar at the bottom tell how far the tasks are that are not over. A pool has the parts
/// that it was made with, so it takes a new one. Each task shares its progress with as many parts
/// as its file is large, and not the abort, which would be that of all.
void Window::followTasks()
{
    constexpr qint64 Most = 100;
    const QList<Task *> tasks = waitingTasks();
    qint64 total = 0;
    for (const Task *const task : tasks)
        total += task->file().size();
    QList<Task *> parts;
    for (Task *const task : tasks)
        parts.append(QList<Task *>(1 + task->file().size() / (total / Most + 1), task));

    m_pool = std::make_unique<SProgressPool>(int(parts.size()));
    for (int i = 0; i < parts.size(); ++i) {
        m_pool->at(i)->setProgress(parts.at(i)->progress());
        IProgress::link(parts.at(i), m_pool->at(i), IProgress::ProgressPeers);
    }
    const auto show = [this] { m_total->setValue(m_pool->progress()); };
    connect(m_pool.get(), &SProgressPool::reportProgress, this, show, Qt::QueuedConnection);
    show();
}

QList<Row *> Window::rows() const
{
    QList<Row *> rows;
    for (int i = 0; i < m_list->topLevelItemCount(); ++i)
        rows.append(static_cast<Row *>(m_list->topLevelItem(i)));
    return rows;
}

QList<Task *> Window::waitingTasks() const
{
    QList<Task *> tasks;
    for (const Row *const row : rows()) {
        if (row->task()->state() == Task::State::Waiting)
            tasks.append(row->task());
    }
    return tasks;
}
