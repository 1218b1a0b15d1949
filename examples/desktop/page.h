#pragma once

#include <QDialog>

#include <functional>

class QPushButton;
class QTextBrowser;

/// A dialog with one page of text, which it makes when it is shown and when the language changes.
class Page : public QDialog
{
    Q_OBJECT

public:
    struct Content
    {
        QString title;
        QString html;
    };

    Page(std::function<Content()> content, QWidget *parent);

public Q_SLOTS:
    /// Shows the page in front of other windows.
    void open() override;

protected:
    void changeEvent(QEvent *event) override;

private:
    void fill();

    std::function<Content()> m_content;
    QTextBrowser *m_browser;
    QPushButton *m_close;
};

/// What the library knows of the system.
Page::Content systemPage();

/// The components that the program is made of, and their licences.
Page::Content legalPage();
