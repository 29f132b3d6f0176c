#pragma once

#include <QtGlobal>

#include <cstddef>

/// What is taken of one round at most, whoever fills the network with answers.
namespace netrove::InquiryLimits {

constexpr qsizetype Answers = 4096;   ///< of each way
constexpr int DatagramsATurn = 32;    ///< of one socket
constexpr std::size_t Requests = 128; ///< for metadata, at the same time
constexpr int DevicesAtAddress = 4;   ///< are asked: one that invents devices delays no other

} // namespace netrove::InquiryLimits
