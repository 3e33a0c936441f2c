# Converts all plots in PLOTS and the folders below whose outputs are missing or out of date:
#     make -f plots.mk -j PLOTS=figures
# "make -f plots.mk clean" removes the outputs.

PLOTS ?= plots
VANTRY ?= vantry

documents := $(shell find $(PLOTS) -name '*.zrd')
models := $(documents:.zrd=.jvx)
displays := $(documents:.zrd=.jvd)

all: $(models) $(displays)

# An output gets its name when it is complete, because a run may fail or be interrupted.
%.jvx: %.zrd
	$(VANTRY) -o $@.new $< && mv $@.new $@ || { rm -f $@.new; false; }

%.jvd: %.zrd
	$(VANTRY) -d -o $@.new $< && mv $@.new $@ || { rm -f $@.new; false; }

clean:
	rm -f $(models) $(displays)

.PHONY: all clean
