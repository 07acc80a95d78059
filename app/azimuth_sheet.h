#pragma once

#include "planning/compass_check.h"

#include <QWidget>

#include <array>
#include <vector>

class QGroupBox;
class QLabel;

namespace merov::app
{

/// The sheet on which the compasses are checked: the place of the body, then the sums of gyro and magnetic
/// compass as a navigator writes them, with the fields of the readings at their places. A result keeps its
/// place while there is none; its caption is dimmed then.
class AzimuthSheet : public QWidget
{
public:
    /// @param readings   the fields of gyro bearing, gyro heading, compass heading and variation
    /// @param eastWest   what the sign of the variation is chosen by
    AzimuthSheet(const std::array<QWidget*, 4>& readings, QWidget* eastWest);

    void ShowResults(const planning::CompassTexts& texts);
    void HideResults();

private:
    using Text = std::string planning::CompassTexts::*;

    /// A result and what is dimmed without it.
    struct Result {
        QLabel* Value;
        Text Shown;
        std::vector<QLabel*> Captions;
    };

    QWidget* MakePlace();
    QLabel* MakeValue(const char* name, Text shown, int width, std::vector<QLabel*> captions);
    void AddReading(QGroupBox& frame, const char* sign, const char* caption, QWidget& field, QWidget* beside = nullptr);
    void AddResult(QGroupBox& frame, const char* sign, const char* caption, const char* name, Text shown);

    int figuresWidth_; ///< of readings and results, pixels
    int rowHeight_;    ///< of a field
    std::vector<Result> results_;
};

} // namespace merov::app
