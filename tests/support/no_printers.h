#pragma once

#include "platform/printers.h"

namespace merov::test
{

/// A computer without a printer.
class NoPrinters : public platform::Printers
{
public:
    QStringList Names() const override { return {}; }

protected:
    QString Default() const override { return {}; }
};

} // namespace merov::test
