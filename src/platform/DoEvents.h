// Lets pending window messages be processed during a long wait on the one
// user-interface thread, so that windows keep repainting and answering.
#pragma once

namespace rwz {

void DoEvents();

}  // namespace rwz
