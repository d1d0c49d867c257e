// In the place of recorder/encoder_streams.cpp, where its library is not there: no stream can be had.
#include "recorder/encoder_streams.h"

namespace melvane {

class EncoderStreams::Stream {};

std::string errorText(EncoderError /*error*/) { return "No encoder"; }

EncoderStreams::EncoderStreams() = default;
EncoderStreams::~EncoderStreams() = default;

EncoderError EncoderStreams::beInitStream(const BE_CONFIG& /*config*/, Sizes& /*sizes*/,
                                          std::uint32_t& /*handle*/) {
    return EncoderError::noMoreHandles;
}

EncoderError EncoderStreams::beEncodeChunk(std::uint32_t /*handle*/, std::span<const std::int16_t> /*samples*/,
                                           std::span<unsigned char> /*output*/, std::uint32_t& /*written*/) {
    return EncoderError::invalidHandle;
}

EncoderError EncoderStreams::beDeinitStream(std::uint32_t /*handle*/, std::span<unsigned char> /*output*/,
                                            std::uint32_t& /*written*/) {
    return EncoderError::invalidHandle;
}

EncoderError EncoderStreams::beCloseStream(std::uint32_t /*handle*/) { return EncoderError::invalidHandle; }

}  // namespace melvane
