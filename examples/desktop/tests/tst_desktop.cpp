#include "languages.h"
#include "window.h"

#include <tavex/SThreading>
#include <tavex/TavexApplication>

#include <QAbstractButton>
#include <QDragEnterEvent>
#include <QMenuBar>
#include <QMimeData>
#include <QProgressBar>
#include <QRegularExpression>
#include <QScreen>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBrowser>
#include <QTreeWidget>

#include <algorithm>
#include <memory>

using namespace Quorvex;

namespace {

/// In milliseconds, for a loaded machine.
constexpr int Patience = 300'000;

enum Column { Name, Size, Modified, Progress, Checksum, Abort };

QString text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

/// Shows the window, and gives it the keyboard, since no window manager does.
bool show(Window &window)
{
    window.show();
    if (!QTest::qWaitForWindowExposed(&window, Patience))
        return false;
    window.activateWindow();
    return QTest::qWaitForWindowActive(&window, Patience);
}

QMenu *menu(const Window &window, int index)
{
    return window.menuBar()->actions().at(index)->menu();
}

/// Opens a menu by the mouse, and chooses an entry if one is given.
void open(const Window &window, int index, QAction *entry = nullptr)
{
    QMenuBar *const bar = window.menuBar();
    QTest::mouseClick(
        bar, Qt::LeftButton, {}, bar->actionGeometry(bar->actions().at(index)).center());
    QMenu *const opened = menu(window, index);
    if (entry)
        QTest::mouseClick(opened, Qt::LeftButton, {}, opened->actionGeometry(entry).center());
    QCoreApplication::processEvents();
}

/// Whether each has a letter after "&" that no other has.
bool haveMnemonics(const QList<QAction *> &actions)
{
    QSet<QString> letters;
    for (const QAction *const action : actions)
        letters.insert(action->text().section(QLatin1Char('&'), 1).left(1).toLower());
    return letters.size() == actions.size();
}

/// All texts of the window, its menus and dialogs but the names of the languages.
QStringList words(const Window &window)
{
    QStringList words{window.windowTitle()};
    for (const QObject *const object : window.findChildren<QObject *>()) {
        if (!object->property("checkable").toBool() || object->inherits("QAbstractButton"))
            for (const char *const name :
                {"text", "title", "windowTitle", "toolTip", "accessibleName"})
                words << object->property(name).toString();
    }
    const auto *const list = window.findChild<QTreeWidget *>();
    for (const int column : {Name, Size, Modified, Progress})
        words << list->headerItem()->text(column);
    for (int i = 0; i < list->topLevelItemCount(); ++i)
        words << list->topLevelItem(i)->text(Progress);
    return words;
}

/// Whether \a word has letters of the script or none at all, and if it is the Latin one, no others.
bool isWritten(const QString &word, QChar::Script script)
{
    const auto isOf = [&](QChar c) { return c.script() == script; };
    const auto isForeign = [&](QChar c) { return c.isLetter() && !isOf(c); };
    return std::ranges::none_of(word, isForeign)
        || (script != QChar::Script_Latin && std::ranges::any_of(word, isOf));
}

} // namespace

class TestDesktop : public QObject
{
    Q_OBJECT

    QTemporaryDir m_folder;

    QString makeFile(const char *name, const QByteArray &bytes, qint64 size)
    {
        QFile file(m_folder.filePath(text(name)));
        file.open(QIODevice::WriteOnly);
        file.write(bytes);
        file.resize(size);
        return file.fileName();
    }

    // Names without letters are of no language.
    QString m_digits = makeFile("1", "123456789", 9);
    QString m_zeros = makeFile("2", {}, 1536);
    QString m_missing = m_folder.filePath(text("3"));
    // They take much longer than a test may, and no room on the disk.
    QStringList m_large{
        makeFile("4", {}, 1LL << 37), makeFile("5", {}, 1LL << 40), makeFile("6", {}, 1LL << 40)};

    std::unique_ptr<Window> m_window;

    QString cell(int file, Column column)
    {
        const auto found = m_window->findChild<QTreeWidget *>()->findItems(
            QString::number(file), Qt::MatchExactly);
        return found.isEmpty() ? QString() : found.at(0)->text(column);
    }

    template <typename Widget>
    Widget *widget(int row, Column column)
    {
        auto *const list = m_window->findChild<QTreeWidget *>();
        return qobject_cast<Widget *>(list->itemWidget(list->topLevelItem(row), column));
    }

private Q_SLOTS:
    static void initTestCase()
    {
        for (const char *const name : {"tavex", "inventory", "desktop"})
            TavexApplication::translationRegister(text(name));
    }

    void init()
    {
#if QT_VERSION >= QT_VERSION_CHECK(6, 3, 0)
        QTest::failOnWarning(QRegularExpression(text(".")));
#endif
        SThreading::setDefaultConcurrence(2);
        setLanguage({QLocale::English, QLocale::UnitedKingdom});
        m_window = std::make_unique<Window>();
        QVERIFY(show(*m_window));
    }

    void cleanup()
    {
        m_window.reset();
    }

    void languages()
    {
        m_window->addFiles({m_digits, m_zeros, m_missing, m_large.at(0)});
        QTRY_COMPARE_WITH_TIMEOUT(cell(1, Progress), text("Done"), Patience);
        QTRY_COMPARE_WITH_TIMEOUT(cell(3, Progress), text("Cannot be read"), Patience);
        for (QAction *const page : menu(*m_window, 2)->actions())
            open(*m_window, 2, page);
        const auto pages = m_window->findChildren<QTextBrowser *>();
        QCOMPARE(pages.size(), 2);

        QList<QImage> flags;
        const QList<QAction *> languages = menu(*m_window, 1)->actions();
        QCOMPARE(languages.size(), 15);
        for (QAction *const language : languages) {
            open(*m_window, 1, language);
            for (const QAction *const other : languages)
                QCOMPARE(other->isChecked(), other == language);
            const QImage flag = language->icon().pixmap(16).toImage();
            QVERIFY(!flag.isNull() && !flags.contains(flag));
            flags.append(flag);

            QList<QAction *> file = menu(*m_window, 0)->actions();
            erase_if(file, [](const QAction *action) { return action->isSeparator(); });
            for (const auto &actions :
                {m_window->menuBar()->actions(), file, menu(*m_window, 2)->actions()})
                QVERIFY2(haveMnemonics(actions), qPrintable(language->text()));
            for (const QString &word : words(*m_window))
                QVERIFY2(isWritten(word, language->text().back().script()), qPrintable(word));

            if (language->text() == text("Deutsch"))
                QCOMPARE(cell(2, Size), text("1,5 KiB"));
        }
        // The last one is Chinese.
        for (const auto &[page, word] : {std::pair(0, "处理器"), std::pair(1, "许可证")}) {
            QVERIFY(pages.at(page)->isVisible());
            QVERIFY(pages.at(page)->toPlainText().contains(text(word)));
        }
    }

    void tasks()
    {
        m_window->addFiles(m_large);
        QMimeData dropped;
        dropped.setUrls({QUrl::fromLocalFile(m_digits), QUrl::fromLocalFile(m_missing)});
        QDragEnterEvent enter({}, Qt::CopyAction, &dropped, Qt::LeftButton, Qt::NoModifier);
        QDropEvent drop({}, Qt::CopyAction, &dropped, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(m_window.get(), &enter);
        QCoreApplication::sendEvent(m_window.get(), &drop);

        // Two are read and the third one waits, and so do the small ones.
        for (const int row : {1, 2}) {
            QTest::mouseClick(widget<QAbstractButton>(row, Abort), Qt::LeftButton);
            QTRY_COMPARE_WITH_TIMEOUT(cell(row + 4, Progress), text("Aborted"), Patience);
            QVERIFY(cell(row + 4, Checksum).isEmpty());
        }
        QTRY_COMPARE_WITH_TIMEOUT(cell(1, Checksum), text("0376e6e7"), Patience);
        QTRY_COMPARE_WITH_TIMEOUT(cell(3, Progress), text("Cannot be read"), Patience);
        QTRY_VERIFY_WITH_TIMEOUT(widget<QProgressBar>(0, Progress)->value() > 0, Patience);
        QTest::keyClick(m_window.get(), Qt::Key_Escape);
        QTRY_COMPARE_WITH_TIMEOUT(cell(4, Progress), text("Aborted"), Patience);

        open(*m_window, 0, menu(*m_window, 0)->actions().at(2));
        QCOMPARE(m_window->findChild<QTreeWidget *>()->topLevelItemCount(), 0);
    }

    void closing()
    {
        m_window->addFiles(m_large);
        QTRY_VERIFY_WITH_TIMEOUT(widget<QProgressBar>(0, Progress)->value() > 0, Patience);
        QTest::keyClick(m_window.get(), Qt::Key_Q, Qt::ControlModifier);
        QVERIFY(!m_window->isVisible());
        m_window.reset();
    }

    /// The picture that the documentation shows.
    void picture()
    {
        setLanguage(QLocale(QLocale::German));
        m_window = std::make_unique<Window>();
        QVERIFY(show(*m_window));
        m_window->addFiles(
            {makeFile("Lofoten 2026, read me before you open the album.txt", {}, 2750),
                makeFile("Lofoten 2026, all the photographs in one album.pdf", {}, 7'340'000),
                m_folder.filePath(text("Lofoten 2026, the film that the neighbours made.mov")),
                makeFile("Lofoten 2026, midnight sun, three hours of it.mp4", {}, 4LL << 30),
                makeFile("Lofoten 2026, copy of both of the memory cards.img", {}, 40LL << 30),
                makeFile("Lofoten 2026, the sea eagles, all seventeen.mp4", {}, 5LL << 30)});
        const auto isHalfRead = [this] {
            const auto *const bar = widget<QProgressBar>(3, Progress);
            return !bar || bar->value() > 60;
        };
        QTRY_VERIFY_WITH_TIMEOUT(isHalfRead(), Patience);
        open(*m_window, 1);
        QTest::qWait(200);
        const QPixmap picture = m_window->screen()->grabWindow(
            0, m_window->x(), m_window->y(), m_window->width(), m_window->height());
        QVERIFY(picture.save(QDir::current().filePath(text("desktop.png"))));
    }
};

QTEST_MAIN(TestDesktop)
#include "tst_desktop.moc"
