# Converts the plots in and below PLOTS whose outputs are missing or older than they are:
#     make -f plots.mk -j PLOTS=figures
# "make -f plots.mk clean" takes the outputs away.

PLOTS ?= plots
VANTRY ?= vantry

documents := $(shell find $(PLOTS) -name '*.zrd')
models := $(documents:.zrd=.jvx)
displays := $(documents:.zrd=.jvd)

all: $(models) $(displays)

# Under another name until it is whole, for a run may fail or be interrupted.
%.jvx: %.zrd
	$(VANTRY) -o $@.new $< && mv $@.new $@ || { rm -f $@.new; false; }

%.jvd: %.zrd
	$(VANTRY) -d -o $@.new $< && mv $@.new $@ || { rm -f $@.new; false; }

clean:
	rm -f $(models) $(displays)

.PHONY: all clean
