#pragma once

#include "platform/field.h"

#include <QDateTimeEdit>

namespace merov::platform
{

/// An entry of a date and a time of day, always taken as it stands, in no zone: "21 May 2004 18:02:15".
///
/// The arrow keys step the part under the cursor, a calendar drops down, and Tab leaves the entry. Values
/// are date-times of time_lib.h in whole seconds, from 1 January 1900 to the end of 31 December 2100.
class TimePicker : public Field<QDateTimeEdit>
{
public:
    explicit TimePicker(QWidget* parent = nullptr);

    /// The date-time that stands in the entry, what is being typed in it included.
    double Value();

    /// @param dateTime  finite; rounded to the second, and brought into the range
    void SetValue(double dateTime);

    /// The user changed the value; SetValue doesn't run it.
    std::function<void()> OnChange;

    /// Room for the longest name of a month.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    bool focusNextPrevChild(bool next) override;

private:
    bool setting_ = false;
};

} // namespace merov::platform
