#pragma once

/// Blurs a mask of one byte a pixel in place, nearly as a Gaussian of standard deviation `sigma` pixels would.
void blur(unsigned char* mask, int width, int height, int stride, double sigma);
