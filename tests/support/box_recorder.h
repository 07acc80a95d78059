#pragma once

#include "numeric/message_box.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace merov::test
{

/// Receives the boxes of one test. Each box must be expected: a test takes what it expects with
/// Take or TakeAll, and what is left at the end, or shown beyond that, fails the test.
class BoxRecorder : public numeric::BoxReceiver
{
public:
    BoxRecorder() : scope_(*this) {}
    ~BoxRecorder() override
    {
        for (const numeric::Box& box : boxes_)
            ADD_FAILURE() << "unexpected box: " << Summary(box);
    }

    numeric::BoxAnswer Show(const numeric::Box& box) override
    {
        boxes_.push_back(box);
        if (!answers_.empty()) {
            const numeric::BoxAnswer answer = answers_.front();
            answers_.erase(answers_.begin());
            return answer;
        }
        switch (box.Buttons) {
        case numeric::BoxButtons::YesNo:
            return numeric::BoxAnswer::No;
        case numeric::BoxButtons::RetryCancel:
            return numeric::BoxAnswer::Cancel;
        default:
            return numeric::BoxAnswer::Ok;
        }
    }

    /// What the next boxes are answered, one each.
    void Answer(std::vector<numeric::BoxAnswer> answers) { answers_ = std::move(answers); }

    /// Removes all boxes received so far and gives them.
    std::vector<numeric::Box> TakeAll()
    {
        std::vector<numeric::Box> taken;
        taken.swap(boxes_);
        return taken;
    }

    /// Removes all boxes and gives them as "title|line|line".
    std::vector<std::string> TakeTexts()
    {
        std::vector<std::string> texts;
        for (const numeric::Box& box : TakeAll())
            texts.push_back(Summary(box));
        return texts;
    }

    /// Removes the single box that is there and gives it as "title|line|line".
    std::string TakeOne()
    {
        const std::vector<std::string> texts = TakeTexts();
        EXPECT_EQ(texts.size(), 1u);
        return texts.empty() ? "" : texts.front();
    }

    std::size_t Count() const { return boxes_.size(); }

    static std::string Summary(const numeric::Box& box)
    {
        std::string text = box.Title;
        for (const std::string& line : box.Lines)
            text += "|" + line;
        return text;
    }

private:
    std::vector<numeric::Box> boxes_;
    std::vector<numeric::BoxAnswer> answers_;
    numeric::ScopedBoxReceiver scope_;
};

} // namespace merov::test
