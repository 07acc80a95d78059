#include "numeric/message_box.h"

#include <stdexcept>

namespace merov::numeric
{
namespace
{
BoxReceiver* Receiver = nullptr;
} // namespace

BoxAnswer ShowBox(const Box& box)
{
    if (Receiver == nullptr) throw std::logic_error("no receiver for the message box: " + box.Title);
    return Receiver->Show(box);
}

void ShowError(const std::string& title, const std::vector<std::string>& lines)
{
    ShowBox({title, lines, BoxIcon::Error, BoxButtons::Ok});
}

void ShowWarning(const std::string& title, const std::vector<std::string>& lines)
{
    ShowBox({title, lines, BoxIcon::Warning, BoxButtons::Ok});
}

void ShowInformation(const std::string& title, const std::vector<std::string>& lines)
{
    ShowBox({title, lines, BoxIcon::Information, BoxButtons::Ok});
}

ScopedBoxReceiver::ScopedBoxReceiver(BoxReceiver& receiver) : former_(Receiver)
{
    Receiver = &receiver;
}

ScopedBoxReceiver::~ScopedBoxReceiver()
{
    Receiver = former_;
}

} // namespace merov::numeric
