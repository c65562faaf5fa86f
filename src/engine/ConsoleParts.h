#pragma once
// What the console's own files share: output (ring and log), line editor, registry.

namespace Console {

/// Fills the ring with line feeds.
void ClearOutput();
/// Empties the line being typed.
void ClearLine();
/// Forgets the history and a running completion.
void ForgetHistory();
void RemoveAllCommands();
/// Registers the commands that need neither window nor textures.
void AddBuiltInCommands();

}  // namespace Console
