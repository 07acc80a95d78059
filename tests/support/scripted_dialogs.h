#pragma once

#include "platform/file_dialogs.h"

#include <deque>
#include <vector>

namespace merov::test
{

/// File dialogs that answer from a list, and with a cancel once it is empty.
class ScriptedDialogs : public platform::FileDialogs
{
public:
    std::optional<QString> AskOpen(const platform::FileQuestion& question) override { return Next(question); }
    std::optional<QString> AskSave(const platform::FileQuestion& question) override { return Next(question); }
    std::optional<QString> AskFolder(const QString& title, const QString& folder) override
    {
        return Next({title, folder, {}, {}});
    }

    std::deque<std::optional<QString>> Answers;    ///< of the next dialogs, one each
    std::vector<platform::FileQuestion> Questions; ///< what they were asked

private:
    std::optional<QString> Next(const platform::FileQuestion& question)
    {
        Questions.push_back(question);
        if (Answers.empty()) return std::nullopt;
        const std::optional<QString> answer = Answers.front();
        Answers.pop_front();
        return answer;
    }
};

} // namespace merov::test
