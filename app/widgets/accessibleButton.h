#pragma once

namespace kestrin::widgets {

/// Makes assistive tools see the window's buttons and options as what the user can
/// do with them: behind a closed frame they are disabled, and take no action. Frames
/// are told as groups, pictures as pictures, the window as one.
void InstallAccessibleButtons();

}  // namespace kestrin::widgets
