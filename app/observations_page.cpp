#include "app/observations_page.h"

#include "app/entry_frame.h"
#include "app/observation_grid.h"
#include "app/page_buttons.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace merov::app
{

ObservationsPage::ObservationsPage(FixInput& input) : grid_(new ObservationGrid(input))
{
    grid_->setObjectName(QStringLiteral("grdObs"));
    grid_->OnCapture = capture_;

    auto* commands = new PictureColumn;
    commands->Add("cmdSaveObs", "save", "Save observations to disk", OnSave);
    commands->Add("cmdNumRes", "num_results", "Display numeric results ", OnNumRes);
    commands->Add("cmdGraphRes", "graph_results", "Display graphic results", OnGraphRes);
    commands->Add("cmdChronoF5", "capture_time", "Store current time", capture_);
    auto* way = new ButtonRow;
    way->Add("cmdPrevTabIn(1)", "&Previous tab", OnPrevious);
    way->Add("cmdCancel(2)", "C&ancel", OnCancel);

    auto* body = new QHBoxLayout;
    body->setSpacing(EntryFrame::FrameSpacing);
    body->addStretch();
    body->addWidget(grid_);
    body->addStretch();
    body->addWidget(commands, 0, Qt::AlignTop);
    auto* page = new QVBoxLayout(this);
    page->setSpacing(EntryFrame::FrameSpacing);
    page->addLayout(body, 1);
    page->addWidget(way);
}

void ObservationsPage::TakeFocus()
{
    grid_->setFocus();
}

void ObservationsPage::Capture()
{
    if (OnCapture) OnCapture();
    TakeFocus();
}

} // namespace merov::app
