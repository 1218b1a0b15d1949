#include "page.h"

#include "sysinfo.h"

#include <tavex/S3rdParty>

#include <QDialogButtonBox>
#include <QEvent>
#include <QPushButton>
#include <QTextBlockFormat>
#include <QTextBrowser>
#include <QTextCursor>
#include <QVBoxLayout>

#include <utility>

using namespace Quorvex;

Page::Page(std::function<Content()> content, QWidget *parent)
    : QDialog(parent)
    , m_content(std::move(content))
    , m_browser(new QTextBrowser)
{
    auto *const buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    m_close = buttons->button(QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    m_browser->setOpenExternalLinks(true);

    auto *const layout = new QVBoxLayout(this);
    layout->addWidget(m_browser);
    layout->addWidget(buttons);
    resize(fontMetrics().averageCharWidth() * 100, fontMetrics().height() * 34);
}

void Page::open()
{
    fill();
    show();
    raise();
    activateWindow();
}

void Page::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange && isVisible())
        fill();
}

void Page::fill()
{
    const Content content = m_content();
    setWindowTitle(content.title);
    m_browser->setAccessibleName(content.title);
    m_browser->setHtml(content.html);
    // The line height that the page asks of web browsers would leave gaps in backgrounds here.
    QTextBlockFormat singleSpaced;
    singleSpaced.setLineHeight(0, QTextBlockFormat::SingleHeight);
    QTextCursor all(m_browser->document());
    all.select(QTextCursor::Document);
    all.mergeBlockFormat(singleSpaced);
    // Qt translates its own button into fewer languages.
    m_close->setText(tr("&Close"));
}

Page::Content systemPage()
{
    QString html;
    for (const SystemSection &section : describeSystem(QLocale())) {
        if (!section.title.isEmpty())
            html += QStringLiteral("<h3>%1</h3>").arg(section.title.toHtmlEscaped());
        html += QStringLiteral("<table cellspacing=\"4\">");
        for (const SystemFact &fact : section.facts) {
            html += QStringLiteral("<tr><td>%1</td><td width=\"12\"/><td>%2</td></tr>")
                        .arg(fact.label.toHtmlEscaped(), fact.value.toHtmlEscaped());
        }
        html += QStringLiteral("</table>");
    }
    return {Page::tr("System information"), html};
}

Page::Content legalPage()
{
    return {Page::tr("Legal information"), S3rdParty::legalInformation()};
}
