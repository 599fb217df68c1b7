#pragma once

/// What has to be settled with the system before the engine starts.
namespace Quillary::EngineStart {

/// As root the engine's sandbox is turned off (the engine refuses to start with it). For everybody else it stays on, and
/// a system that forbids it is found out beforehand: the engine would end the whole program. Throws: `PrintError`.
void settleSandbox();

/// The engine's resolver finds no host at all, numeric addresses included: a second lock behind `RequestGuard`, which
/// lets go of requests that are under way when its profile ends.
void forbidHosts();

} // namespace Quillary::EngineStart
