#include "services/schedule.h"

#include "core/app_state.h"
#include "tasks/answer.h"
#include "tasks/sleep.h"

namespace morvane {

void AppState::startAutoScanLoop() {
    if (!autoScanTask) autoScanTask = scope_.start(runAutoScanLoop(shared_from_this()));
}

Task<void> AppState::runAutoScanLoop(Self self) {
    while (!co_await isCancelled()) {
        self->autoScanTick();
        co_await sleepFor(autoScanInterval);
    }
}

void AppState::autoScanTick() {
    const ScheduleView view{.hasOnboarded = *hasOnboarded,
                            .schedule = *schedule,
                            .lastScanAt = *lastScanAt,
                            .scanPhase = *scanPhase,
                            .isSweeping = *isSweeping,
                            .isActive = platform().workspace.isActive(),
                            .selection = *selection};
    if (shallScan(view, now())) startScan(false);
}

void AppState::remindIfReady() {
    const double amount = safeMB();
    const ReminderView view{.safeMB = amount,
                            .remindWhenReady = *remindWhenReady,
                            .isActive = platform().workspace.isActive(),
                            .remindedAt = *remindedAt,
                            .lastSweptAt = *lastSweptAt};
    if (!shallRemind(view)) return;
    remindedAt = now();
    scope_.start(runReminder(shared_from_this(), amount));
}

Task<void> AppState::runReminder(Self self, double amount) {
    NotificationCenter& center = self->platform().notifications;
    const PermissionStatus status =
        co_await Answer<PermissionStatus>([&center](std::function<void(PermissionStatus)> answer) {
            center.readStatus(std::move(answer));
        });
    if (co_await isCancelled()) co_return;
    if (status != PermissionStatus::granted) co_return;
    const ReminderWords words = reminderWords(amount, *self->alwaysUseTrash);
    center.post(words.identifier, words.title, words.body);
}

}  // namespace morvane
