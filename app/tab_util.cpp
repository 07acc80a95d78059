#include "app/tab_util.h"

#include "app/ellipsoid_frame.h"
#include "app/eta_page.h"
#include "app/gc_page.h"
#include "app/page_buttons.h"
#include "app/rl_page.h"
#include "app/sailing_fields.h"

#include <algorithm>

namespace merov::app
{
namespace
{

using fix::SailingPage;

const QSize LeastSize(720, 505); // pixels

} // namespace

TabUtil::TabUtil(numeric::LastError& journal, QWidget* parent)
    : platform::TabStrip(parent), entry_(journal), fields_(std::make_unique<SailingFieldsView>(entry_)),
      next_([this] { NextTab(); }), previous_([this] { PrevTab(); })
{
    setObjectName(QStringLiteral("tabUtil"));
    AddPages(journal);
    fields_->Show();
    OnGotFocus = [this] { SelectSailingPage(); };
    setFixedSize(LeastSize.expandedTo(minimumSizeHint()));
}

TabUtil::~TabUtil()
{
    hide(); // no field is left or entered while they go
}

void TabUtil::AddPages(numeric::LastError& journal)
{
    auto* buttons = new ButtonRow;
    buttons->Add("cmdNextTabUtil(0)", "&Next tab", next_);
    buttons->Add("cmdEndTabUtil(0)", "En&d", OnEnd);
    rl_ = new RlPage(entry_, *fields_, buttons);
    addTab(rl_, QStringLiteral("&Rhumb line"));

    buttons = new ButtonRow;
    buttons->Add("cmdPrevTabUtil(0)", "&Previous tab", previous_);
    buttons->Add("cmdNextTabUtil(1)", "&Next tab", next_);
    buttons->Add("cmdEndTabUtil(1)", "En&d", OnEnd);
    gc_ = new GcPage(entry_, *fields_, journal, buttons);
    addTab(gc_, QStringLiteral("&Great circle"));

    buttons = new ButtonRow;
    buttons->Add("cmdPrevTabUtil(1)", "&Previous tab", previous_);
    buttons->Add("cmdEndTabUtil(2)", "En&d", OnEnd);
    eta_ = new EtaPage(nullptr, journal, buttons);
    addTab(eta_, QStringLiteral("E&TA"));

    rl_->Ellipsoid().SetCommand(OnChangeEllipsoid);
    gc_->Ellipsoid().SetCommand(OnChangeEllipsoid);
    gc_->OnPrint = [this] {
        if (OnPrintReport) OnPrintReport();
    };
    gc_->OnNoTemplate = [this](const QString& failure) {
        if (OnNoTemplate) OnNoTemplate(failure);
    };
    eta_->OnPrint = [this] {
        if (OnPrintEta) OnPrintEta();
    };
}

void TabUtil::InstallMasks()
{
    fields_->InstallMasks();
    eta_->InstallMasks();
}

void TabUtil::SetReportTemplate(const QString& path)
{
    gc_->SetReportTemplate(path);
}

void TabUtil::SelectSailingPage()
{
    const auto page = static_cast<SailingPage>(currentIndex());
    entry_.SelectPage(page);
    fields_->Show();
    switch (page) {
    case SailingPage::RhumbLine:
        rl_->TakeFocus();
        break;
    case SailingPage::GreatCircle:
        gc_->Enter();
        gc_->TakeFocus();
        break;
    case SailingPage::Arrival: {
        const bool typed = entry_.Data().Filled(fix::SailingField::Distance);
        eta_->Start(typed ? QString::fromStdString(entry_.Text(fix::SailingField::Distance)) : QString(),
                    entry_.Data().RhumbDistance);
        eta_->TakeFocus();
    }
    }
}

void TabUtil::NextTab()
{
    ShowPage(std::min(currentIndex() + 1, count() - 1));
    SelectSailingPage();
}

void TabUtil::PrevTab()
{
    ShowPage(std::max(currentIndex() - 1, 0));
    SelectSailingPage();
}

void TabUtil::ShowEllipsoid(bool computes)
{
    rl_->ShowEllipsoid();
    gc_->Ellipsoid().ShowName();
    if (!computes) return;
    entry_.ComputeRhumbLine(false);
    fields_->Show();
}

platform::RichTextBox& TabUtil::Report()
{
    return gc_->Report();
}

} // namespace merov::app
