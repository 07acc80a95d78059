#pragma once

#include "platform/printers.h"

namespace merov::test
{

/// A computer without a printer, where nothing is printed to files either.
class NoPrinters : public platform::Printers
{
protected:
    QStringList SystemNames() const override { return {}; }
    QString Default() const override { return {}; }
    bool OffersFile() const override { return false; }
};

} // namespace merov::test
