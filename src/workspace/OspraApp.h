#pragma once

#include "core/OspraModel.h"
#include "tilemap/item/MapImagery.h"
#include "workspace/shell/CheckForUpdatesViewModel.h"
#include "workspace/shell/TerminationSignals.h"
#include "workspace/shell/UnitsSetting.h"

#include <QQmlApplicationEngine>
#include <QQuickWindow>

#include <memory>

namespace ospra {

/// The running program: its one model, its one window and the check for updates. Needs a QApplication.
class OspraApp {
public:
    /// Makes the model on the machine's own services, with the user's settings.
    OspraApp();
    ~OspraApp();

    /// Opens the window, which then restores the folders of the last run. @return false if it cannot be made
    [[nodiscard]] bool openWindow();

    [[nodiscard]] OspraModel& model() { return *m_model; }
    [[nodiscard]] QQuickWindow* window() const;

private:
    void passMapCredits();

    ModelServices m_services;
    std::unique_ptr<OspraModel> m_model;
    std::unique_ptr<CheckForUpdatesViewModel> m_updates; ///< null where no feed was built in
    UnitsSetting m_units;
    TerminationSignals m_terminationSignals;
    MapImagery m_imagery;
    std::unique_ptr<QQmlApplicationEngine> m_engine;
};

/// What has to be said before the application object is made: names, style, scale factors.
void prepareApplication();

} // namespace ospra
