#pragma once

#include <string>
#include <vector>

namespace merov::numeric
{

/// The picture of a box: error for a failed calculation, warning for bad input, information for
/// advice, question for a question.
enum class BoxIcon { Error, Warning, Information, Question };

/// The buttons of a box.
enum class BoxButtons { Ok, YesNo, RetryCancel };

/// What the user pressed. Closing a box without a button counts as No or Cancel, where it has one.
enum class BoxAnswer { Ok, Yes, No, Retry, Cancel };

/// A modal message. `Lines` are shown one below the other; texts are UTF-8.
struct Box {
    std::string Title;
    std::vector<std::string> Lines;
    BoxIcon Icon = BoxIcon::Error;
    BoxButtons Buttons = BoxButtons::Ok;
    bool LastIsDefault = false; ///< Return presses the last button, else the first
};

/// Whoever shows boxes: a window, the command line, a test.
class BoxReceiver
{
public:
    virtual ~BoxReceiver() = default;

    /// Shows `box` and waits for its answer, which must be one that the box's buttons allow.
    virtual BoxAnswer Show(const Box& box) = 0;
};

/// Shows a box through the installed receiver and gives the user's answer.
/// Without a receiver it throws std::logic_error: a message must never be lost unseen.
BoxAnswer ShowBox(const Box& box);

/// Short forms for boxes with one OK button. The first argument is the title.
void ShowError(const std::string& title, const std::vector<std::string>& lines);
void ShowWarning(const std::string& title, const std::vector<std::string>& lines);
void ShowInformation(const std::string& title, const std::vector<std::string>& lines);

/// Makes `receiver` the receiver of all boxes for its own lifetime, then puts the former one back.
/// The receiver must outlive it. Scopes nest; they end in the reverse order of their beginning.
class ScopedBoxReceiver
{
public:
    explicit ScopedBoxReceiver(BoxReceiver& receiver);
    ~ScopedBoxReceiver();
    ScopedBoxReceiver(const ScopedBoxReceiver&) = delete;
    ScopedBoxReceiver& operator=(const ScopedBoxReceiver&) = delete;

private:
    BoxReceiver* former_;
};

} // namespace merov::numeric
