// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/shell/RegisterForms.h"

#include <algorithm>
#include <iterator>

#include "app/MessageTexts.h"
#include "forms/config/AuxCalForm.h"
#include "forms/config/AuxControlForm.h"
#include "forms/config/Filterform.h"
#include "forms/config/IOControlForm.h"
#include "forms/config/MainCalForm.h"
#include "forms/config/MainControlForm.h"
#include "forms/config/ModeForm.h"
#include "forms/shell/StatusForm.h"
#include "link/Register.h"

namespace vx3260 {
namespace {

template <typename Opened>
void Open(Services& services, QWidget* parent) {
    Opened form(services, parent);
    form.exec();
}

void OpenFilterform(Services& services, QWidget* parent) {
    const std::int32_t mode =
        ReadRegister(services.port, services.state.PortAddress, RegisterMap::Mode);
    if (!RegisterMap::IsPowerDown(mode)) {
        services.messages.Show({.text = std::string(MessageTexts::FilterNeedsPowerDown),
                                .icon = MessageIcon::Exclamation});
        return;
    }
    Open<Filterform>(services, parent);
}

struct RegisterFormEntry {
    const RegisterMap::RegisterAccess& access;
    void (*open)(Services&, QWidget*);
};

constexpr RegisterFormEntry entries[] = {
    {RegisterMap::Status, Open<StatusForm>},
    {RegisterMap::Mode, Open<ModeForm>},
    {RegisterMap::MainControl, Open<MainControlForm>},
    {RegisterMap::AuxControl, Open<AuxControlForm>},
    {RegisterMap::Filter, OpenFilterform},
    {RegisterMap::IOControl, Open<IOControlForm>},
    {RegisterMap::MainZeroScale, Open<MainCalForm>},
    {RegisterMap::MainFullScale, Open<MainCalForm>},
    {RegisterMap::AuxZeroScale, Open<AuxCalForm>},
    {RegisterMap::AuxFullScale, Open<AuxCalForm>},
};

}  // namespace

void OpenRegisterForm(Services& services, const RegisterMap::RegisterDescription& description,
                      QWidget* parent) {
    const auto* const entry = std::ranges::find_if(entries, [&](const RegisterFormEntry& e) {
        return e.access.readByte == description.access.readByte;
    });
    if (entry != std::end(entries)) {
        entry->open(services, parent);
    }
}

}  // namespace vx3260
