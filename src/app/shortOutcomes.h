#pragma once

#include "app/SessionState.h"

class QFontMetrics;

/// The outcomes as one text of at most `width` pixels: titles are cut, never how a command ended as
/// long as one ending fits. What is done gives way first, then the last command, then later
/// concerns; an ellipsis stands for what is left out.
QString shortOutcomes(std::vector<SessionState::Outcome> outcomes, const QFontMetrics &metrics,
                      int width);
