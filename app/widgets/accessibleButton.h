#pragma once

namespace kestrin::widgets {

/// Makes assistive tools see the window's buttons and options as what the user can
/// do with them: behind a closed frame they are disabled, and take no action.
void InstallAccessibleButtons();

}  // namespace kestrin::widgets
