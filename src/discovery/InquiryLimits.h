#pragma once

#include <QtGlobal>

#include <cstddef>

/// Limits of one round, for the case that somebody floods the network with answers.
namespace netrove::InquiryLimits {

constexpr qsizetype Answers = 4096; ///< of each way
constexpr std::size_t Links = 32;  ///< with virtual machines, a computer has many that lead nowhere
constexpr int DatagramsATurn = 32; ///< from one socket
constexpr std::size_t Requests = 128; ///< for metadata, at the same time
/// Questions that one address may cause: so an address that invents devices neither delays others
/// nor makes the program flood the network.
constexpr int QuestionsAnAddress = 4;

} // namespace netrove::InquiryLimits
