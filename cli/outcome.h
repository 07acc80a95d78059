#pragma once

#include "numeric/message_box.h"

#include <QJsonArray>
#include <QJsonObject>

#include <string>
#include <vector>

namespace merov::cli
{

constexpr int StatusDone = 0;       ///< boxes of a run that went on included
constexpr int StatusRefused = 1;    ///< the job could not be done or was refused
constexpr int StatusWrongUsage = 2; ///< nothing on standard output

/// What a command leaves: the values for scripts, the text for people and the exit status.
struct Outcome {
    QJsonObject Json;
    std::string Text;
    int Status = StatusDone;
    std::string Error; ///< a failure that has no box
};

/// Collects the boxes of a run. Questions are answered No or Cancel: a script cannot be asked.
class BoxLog : public numeric::BoxReceiver
{
public:
    /// @param echo  writes each box to standard error as it comes
    explicit BoxLog(bool echo) : echo_(echo) {}
    numeric::BoxAnswer Show(const numeric::Box& box) override;

    const std::vector<numeric::Box>& Boxes() const { return boxes_; }

private:
    bool echo_;
    std::vector<numeric::Box> boxes_;
};

/// A number for JSON: null if it isn't finite.
QJsonValue JsonNumber(double value);

/// A time for JSON, "YYYY-MM-DD HH:MM:SS": null if it isn't finite.
QJsonValue JsonTime(double dateTime);

QJsonValue JsonText(const std::string& text);

/// Boxes for JSON: objects with Title, Lines and Icon ("error", "warning", "information", "question").
QJsonArray JsonBoxes(const std::vector<numeric::Box>& boxes);

/// Prints what a command left, as one JSON object or as text, and gives its exit status.
int Finish(const Outcome& outcome, const BoxLog& log, bool json);

} // namespace merov::cli
