#pragma once

namespace morvane {

// Lets the calling thread stand back behind the main thread wherever both want the processor, for
// good: what it does takes long and may wait, while the window must answer at once. Threads and
// processes started from it stand back too. Without effect where the system refuses.
void standBackForMainThread();

}  // namespace morvane
