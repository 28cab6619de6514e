// zvconv --print: a batch of image files printed on the default printer
// with the stored print options of a tag file, no dialog.
#pragma once

// argv as main has it: zvconv --print TAGFILE IMAGE...; the exit status.
int PrintBatch(int argc, char** argv);
