// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/model_facts.h"

#include "texts/number_text.h"
#include "ui/facts_html.h"
#include "ui/text.h"
#include "values/plain_text.h"
#include "workspace/index_sheet.h"
#include "workspace/work_rest_table.h"

#include <cmath>

namespace comfortics::ui {

using catalogue::Addition;
using catalogue::AdditionInput;
using workspace::Figure;
using workspace::InputOrigin;
using workspace::ModelInput;
using workspace::ModelStanding;

namespace {

QString link(const char* scheme, std::string_view to, const QString& html)
{
    return QStringLiteral("<a href=\"%1:%2\">%3</a>").arg(QLatin1String(scheme), escaped(to), html);
}

QString valueHtml(const ModelStanding& standing, const workspace::Item& item)
{
    const Figure& figure = standing.figures[item.result()];
    if (figure.text.empty()) {
        QString html = QStringLiteral("<b>No value.</b> ") + escaped(figure.reason);
        if (!standing.wantedField.empty())
            html +=
                QLatin1Char(' ') + link(kFieldLink, standing.wantedField, QStringLiteral("Go to the field."));
        return paragraph(html);
    }
    QString html = QStringLiteral("<b>%1</b>").arg(withUnit(escaped(figure.text), item.unit()));
    if (figure.meaning)
        html += QStringLiteral(", ") + escaped(catalogue::inWords(*figure.meaning));
    return paragraph(html) + paragraph(escaped(figure.doubt)) + paragraph(escaped(standing.assumed));
}

QString resultsHtml(const ModelStanding& standing, const workspace::Item& item)
{
    QString rows;
    for (std::size_t i = 0; i < standing.figures.size(); ++i) {
        const Figure& figure = standing.figures[i];
        const workspace::Item other(catalogue::Figure{standing.model, i});
        QString text =
            figure.text.empty() ? QStringLiteral("\u2013") : withUnit(escaped(figure.text), other.unit());
        if (!figure.doubt.empty())
            text += QStringLiteral(" \u26A0");
        const QString name = escaped(standing.model->results[i].name);
        rows += QStringLiteral("<tr><td>%1&nbsp;&nbsp;</td><td>%2</td></tr>")
                    .arg(i == item.result() ? QStringLiteral("<b>%1</b>").arg(name)
                                            : link(kFigureLink, other.id(), name),
                         text);
    }
    return heading("What it gives") + QStringLiteral("<table>%1</table>").arg(rows);
}

// Numbers that were calculated have more digits than anyone wants to read.
QString inputValue(const AdditionInput& input, const ModelInput& at)
{
    if (std::isnan(at.value))
        return QStringLiteral("\u2013");
    if (input.isOption())
        return escaped(workspace::valueInWords(*input.info, at.value));
    return withUnit(escaped(workspace::briefly(values::plainText(at.value))), input.info->unit);
}

QString originText(const ModelInput& at)
{
    QString source = escaped(at.source);
    switch (at.origin) {
    case InputOrigin::Missing:
        return QStringLiteral("<b>%1</b>").arg(escaped(at.problem));
    case InputOrigin::Readings:
        return source.isEmpty() ? QStringLiteral("readings") : QStringLiteral("readings, ") + source;
    case InputOrigin::Row:
        return QStringLiteral("its row");
    case InputOrigin::Typed:
        return QStringLiteral("person and place");
    case InputOrigin::Model:
        return source;
    case InputOrigin::Start:
        return QStringLiteral("assumed: ") + source;
    case InputOrigin::Left:
        return QStringLiteral("left out: ") + source;
    case InputOrigin::Unread:
        return QStringLiteral("not read now");
    }
    return {};
}

QString inputsHtml(const ModelStanding& standing)
{
    QString rows;
    for (std::size_t i = 0; i < standing.inputs.size(); ++i) {
        const AdditionInput& input = standing.model->inputs[i];
        const ModelInput& at = standing.inputs[i];
        QString name = escaped(input.info->name);
        if (const std::string_view field = workspace::fieldIdOf(*input.info); !field.empty())
            name = link(kFieldLink, field, name);
        QString range =
            input.isOption() ? QString() : escaped(catalogue::rangeInWords(input.range, input.info->unit));
        if (!input.isOption() && !std::isnan(at.value) && at.origin != InputOrigin::Unread &&
            !input.range.contains(at.value))
            range = QStringLiteral("<b>\u26A0 %1</b>").arg(range);
        QString about = originText(at);
        if (!range.isEmpty())
            about += QStringLiteral("; ") + range;
        rows += QStringLiteral("<tr><td>%1&nbsp;</td><td>%2&nbsp;</td><td>%3</td></tr>")
                    .arg(name, inputValue(input, at), about);
    }
    return heading("What it reads") + QStringLiteral("<table>%1</table>").arg(rows);
}

// The row and the cell that hold now are bold, and the row has a mark beside it.
QString workRestHtml(const workspace::Situation& situation, const workspace::FieldTexts& person)
{
    const workspace::WorkRestTable table = workspace::workRestTable(situation, person);
    QString html = heading("Work and rest") + paragraph(escaped(table.title));
    if (table.rows.empty())
        return html + paragraph(QStringLiteral("<b>No value.</b> ") + escaped(table.problem));
    QString rows = QStringLiteral("<tr><th></th><th align=\"left\">%1</th>").arg(escaped(table.rowHeading));
    for (const std::string& name : table.headings)
        rows += QStringLiteral("<th align=\"right\">&nbsp;%1</th>").arg(escaped(name));
    rows += QStringLiteral("</tr>");
    const auto strong = [](const QString& text, bool isStrong) {
        return isStrong ? QStringLiteral("<b>%1</b>").arg(text) : text;
    };
    for (const workspace::WorkRestRow& row : table.rows) {
        rows += QStringLiteral("<tr><td>%1</td><td>%2</td>")
                    .arg(row.isPresent ? QStringLiteral("\u25B6") : QString(),
                         strong(escaped(row.work), row.isPresent));
        for (const workspace::WorkRestCell& cell : row.cells)
            rows += QStringLiteral("<td align=\"right\">%1</td>")
                        .arg(strong(escaped(cell.inWords()), cell.isPresent));
        rows += QStringLiteral("</tr>");
    }
    return html + QStringLiteral("<table cellpadding=\"1\">%1</table>").arg(rows) +
           paragraph(escaped(table.assumes));
}

QString classesHtml(const ModelStanding& standing, const workspace::Item& item, const QPalette& palette)
{
    const catalogue::Scale& scale = item.scale();
    if (scale.categories.empty())
        return {};
    const auto& meaning = standing.figures[item.result()].meaning;
    QString rows;
    for (const catalogue::Category& category : scale.categories)
        rows += classRow(category, catalogue::boundsInWords(item.scaleIndex(), category),
                         meaning && meaning->category == &category, category.severity, palette);
    return heading("Classes") + classTable(rows) +
           paragraph(QStringLiteral("Source: ") + linked(scale.source) + QLatin1Char('.'));
}

} // namespace

QString modelFacts(const workspace::Item& item, const workspace::Situation& situation,
                   const workspace::FieldTexts& person, const QPalette& palette)
{
    const Addition& model = *item.model();
    const ModelStanding standing = workspace::modelStanding(model, situation, person);
    QString html = QStringLiteral("<h3>%1</h3>").arg(escaped(item.name()));
    html += valueHtml(standing, item);
    html += paragraph(escaped(model.description));
    for (const std::string_view warning : model.warnings)
        html += paragraph(QStringLiteral("<b>Mind:</b> %1.").arg(escaped(warning)));
    html += resultsHtml(standing, item);
    if (workspace::hasWorkRest(item))
        html += workRestHtml(situation, person);
    html += inputsHtml(standing) + classesHtml(standing, item, palette);
    html += heading("Literature");
    for (const std::string_view reference : model.references)
        html += paragraph(linked(reference));
    return html + paragraph(QStringLiteral("Family: %1. Id: %2.")
                                .arg(escaped(catalogue::familyName(model.family)), escaped(item.id())));
}

} // namespace comfortics::ui
