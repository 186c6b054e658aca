#pragma once

/// What the program's process owes to the one that started it.
namespace process {

/// Opens what was closed of standard input, output and error, which lead nowhere then. Otherwise
/// the next file or connection would get that number, and lines written to it. For the very start.
void completeStandardStreams();

/// A stream without a reader and a file at its size limit are failed writes from now on, and no end
/// of the program. Programs that this one starts are not concerned.
void surviveFailedWrites();

/// Ends the program by the default action of a signal, so that its parent sees how it ended.
[[noreturn]] void endBySignal(int signal);

} // namespace process
