#include "cli/outcome.h"

#include "ephemeris/time_lib.h"

#include <QJsonDocument>

#include <cmath>
#include <cstdio>

namespace merov::cli
{
namespace
{

const char* IconName(numeric::BoxIcon icon)
{
    switch (icon) {
    case numeric::BoxIcon::Error:
        return "error";
    case numeric::BoxIcon::Warning:
        return "warning";
    case numeric::BoxIcon::Information:
        return "information";
    case numeric::BoxIcon::Question:
        break;
    }
    return "question";
}

void Print(std::FILE* stream, const std::string& text)
{
    std::fwrite(text.data(), 1, text.size(), stream);
}

} // namespace

numeric::BoxAnswer BoxLog::Show(const numeric::Box& box)
{
    boxes_.push_back(box);
    if (echo_) {
        const std::size_t first = box.Title.find_first_not_of(' ');
        std::string text = "merov-cli: " + (first == std::string::npos ? box.Title : box.Title.substr(first)) + "\n";
        for (const std::string& line : box.Lines)
            text += "    " + line + "\n";
        Print(stderr, text);
    }
    switch (box.Buttons) {
    case numeric::BoxButtons::YesNo:
        return numeric::BoxAnswer::No;
    case numeric::BoxButtons::RetryCancel:
        return numeric::BoxAnswer::Cancel;
    case numeric::BoxButtons::Ok:
        break;
    }
    return numeric::BoxAnswer::Ok;
}

QJsonValue JsonNumber(double value)
{
    return std::isfinite(value) ? QJsonValue(value) : QJsonValue();
}

QJsonValue JsonTime(double dateTime)
{
    return std::isfinite(dateTime) ? JsonText(ephemeris::FormatIsoDateTime(dateTime)) : QJsonValue();
}

QJsonValue JsonText(const std::string& text)
{
    return QString::fromStdString(text);
}

QJsonArray JsonBoxes(const std::vector<numeric::Box>& boxes)
{
    QJsonArray array;
    for (const numeric::Box& box : boxes) {
        QJsonArray lines;
        for (const std::string& line : box.Lines)
            lines.append(JsonText(line));
        array.append(QJsonObject{{"Title", JsonText(box.Title)}, {"Lines", lines}, {"Icon", IconName(box.Icon)}});
    }
    return array;
}

int Finish(const Outcome& outcome, const BoxLog& log, bool json)
{
    if (json) {
        QJsonObject object = outcome.Json;
        object["Boxes"] = JsonBoxes(log.Boxes());
        if (!outcome.Error.empty()) object["Error"] = JsonText(outcome.Error);
        Print(stdout, QJsonDocument(object).toJson(QJsonDocument::Indented).toStdString());
    } else {
        Print(stdout, outcome.Text);
        if (!outcome.Error.empty()) Print(stderr, "merov-cli: " + outcome.Error + "\n");
    }
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
        Print(stderr, "merov-cli: the results could not be written.\n");
        return StatusRefused;
    }
    return outcome.Status;
}

} // namespace merov::cli
