#pragma once

#include <QElapsedTimer>
#include <QString>

#include <optional>

class Examination;

/// How many columns the terminal has; nothing if the output or the errors go elsewhere.
std::optional<int> terminalWidth();

/// How many columns of a terminal \a text takes: Chinese characters take two.
qsizetype displayWidth(const QString &text);

/// A line at the bottom of the terminal that tells how far the work is, how fast it goes and how
/// long it will take.
class ProgressBar
{
public:
    /// Draws nothing if there is no \a width.
    explicit ProgressBar(std::optional<int> width)
        : m_width(width)
    {
        m_clock.start();
    }

    void draw(const Examination &work);
    /// Takes the line away, so that other text can be written.
    void clear();

private:
    std::optional<int> m_width;
    QElapsedTimer m_clock;
    bool m_isShown = false;
};
