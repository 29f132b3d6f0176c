#pragma once

#include <QtGlobal>

#include <cstddef>

/// What is taken of one round at most, whoever fills the network with answers.
namespace netrove::InquiryLimits {

constexpr qsizetype Answers = 4096; ///< of each way
constexpr std::size_t Links = 32;   ///< a computer with virtual machines has many that lead nowhere
constexpr int DatagramsATurn = 32;  ///< of one socket
constexpr std::size_t Requests = 128; ///< for metadata, at the same time
/// That an address may cause: one that invents devices delays no other, and makes nobody shout.
constexpr int QuestionsAnAddress = 4;

} // namespace netrove::InquiryLimits
