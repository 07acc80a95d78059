#include "output/report_template.h"

namespace merov::output
{

std::optional<QString> LoadTemplate(platform::RichText& text, const QString& file, int markers)
{
    constexpr double TextIndent = 210.0; // twips
    if (std::optional<QString> wrong = text.LoadFile(file)) return wrong;
    const qsizetype found = text.Document().toPlainText().count(TemplateMarker);
    if (found != markers)
        return QStringLiteral("The template of the report is damaged: it has %1 markers § in place of %2.")
            .arg(found)
            .arg(markers);
    text.SelectAll();
    text.SetIndent(TextIndent);
    return {};
}

} // namespace merov::output
