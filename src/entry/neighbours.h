#pragma once

namespace tarvoni {

// Answers on this thread what Screens of one area ask of another (src/common/contracts.h).
void AnswerNeighbours();

}  // namespace tarvoni
