// A frame with alpha first reads green, red, alpha, blue. With a flag of 1 this puts it into red,
// green, blue, alpha, and a colour into what a target of that order takes.
#define SWAP_CHANNELS_WTO(swapFlag, src, dst) if (swapFlag==1) dst = src.grab; else dst = src
