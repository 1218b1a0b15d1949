#include "terminal.h"

#include "inventory.h"
#include "text.h"

#include <QLocale>

#include <algorithm>
#include <cstdio>
#include <utility>

#ifdef Q_OS_WIN
#include <io.h>
#include <windows.h>
#else
#include <sys/ioctl.h>
#include <unistd.h>
#endif

namespace {

void writeError(const QString &text)
{
    std::fputs(text.toLocal8Bit().constData(), stderr);
    std::fflush(stderr);
}

} // namespace

std::optional<int> terminalWidth()
{
#ifdef Q_OS_WIN
    CONSOLE_SCREEN_BUFFER_INFO screen;
    if (_isatty(_fileno(stdout)) && _isatty(_fileno(stderr))
        && GetConsoleScreenBufferInfo(GetStdHandle(STD_OUTPUT_HANDLE), &screen))
        return screen.srWindow.Right - screen.srWindow.Left + 1;
#else
    winsize size{};
    if (isatty(STDOUT_FILENO) && isatty(STDERR_FILENO)
        && ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0)
        return size.ws_col;
#endif
    return {};
}

qsizetype displayWidth(const QString &text)
{
    return text.size()
        + std::ranges::count_if(text, [](QChar c) { return c.script() == QChar::Script_Han; });
}

void ProgressBar::draw(const Examination &work)
{
    // For work that ends at once a bar would only flicker.
    constexpr qint64 Patience = 500;
    const qint64 elapsed = m_clock.elapsed();
    if (!m_width || elapsed < Patience)
        return;

    const int percent = work.percent();
    QString line = QStringLiteral("%1 % [%2] ")
                       .arg(percent, 3)
                       .arg(QString(percent / 5, QLatin1Char('#')), -20, QLatin1Char('.'));
    if (const qint64 rate = work.bytesRead() * 1000 / elapsed; rate > 0) {
        const qint64 seconds = work.bytesLeft() / rate;
        line += Text::tr("%1/s, %2 left")
                    .arg(readableSize(rate, QLocale()),
                        QStringLiteral("%1:%2")
                            .arg(seconds / 60)
                            .arg(seconds % 60, 2, 10, QLatin1Char('0')));
    }
    // What is in the last column would begin the next line, and Ctrl-C shows as "^C".
    constexpr int Margin = 3;
    const auto room = qMax<qsizetype>(0, *m_width - Margin - displayWidth(line));
    writeError(QLatin1Char('\r') + line + QString(room, QLatin1Char(' ')));
    m_isShown = true;
}

void ProgressBar::clear()
{
    if (std::exchange(m_isShown, false))
        writeError(QLatin1Char('\r') + QString(*m_width - 1, QLatin1Char(' ')) + QLatin1Char('\r'));
}
