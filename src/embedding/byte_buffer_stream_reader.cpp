#include "embedding/byte_buffer_stream_reader.h"

#include "embedding/error_stream.h"

namespace orvane {

void ByteBufferStreamReader::logInvalidRead() { logErrorLine("Invalid read in StandardCodecByteStreamReader"); }

}  // namespace orvane
