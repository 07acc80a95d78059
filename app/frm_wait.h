#pragma once

#include "platform/modal_form.h"

#include <QTimer>

#include <chrono>

class QProgressBar;

namespace merov::app
{

/// " Print job in progress": stands for a moment before a print. Its bar fills by a timer and shows no real
/// progress.
class FrmWait : public platform::ModalForm
{
public:
    /// @param tick  between two steps of the bar
    FrmWait(std::chrono::milliseconds tick, QWidget* parent);

    /// Shows the form and waits until it has closed by itself, when the bar is full.
    void Open();

    /// The user can't close it.
    void reject() override {}

private:
    void LayOut();
    void Tick();

    QTimer tmrWait_;
    QProgressBar* prgWait_;
};

} // namespace merov::app
